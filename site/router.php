<?php

/**
 * Router of the example site for PHP's built-in server:
 *
 *     php -n -d extension=FILE/dralo.so -S 127.0.0.1:8080 -t site site/router.php
 *
 * Answers every request itself, so that nothing but the pages, the style sheets and the pictures can be reached.
 */

declare(strict_types=1);

const ASSETS = __DIR__ . "/../assets";
const NOT_A_PAGE = ["/router.php"];

/** The file that the path stands for and its content type; null when there is none. */
function static_file(string $path): ?array
{
    return match (1) {
        preg_match('~^/dralo\.css$~D', $path) => [ASSETS . $path, "text/css; charset=utf-8"],
        preg_match('~^/dralo\.js$~D', $path) => [ASSETS . $path, "text/javascript; charset=utf-8"],
        preg_match('~^/gfx/[a-z]+\.gif$~D', $path) => [ASSETS . $path, "image/gif"],
        preg_match('~^/site\.css$~D', $path) => [__DIR__ . $path, "text/css; charset=utf-8"],
        preg_match('~^/(icon|previews/[a-z-]+)\.svg$~D', $path) => [__DIR__ . $path, "image/svg+xml"],
        default => null,
    };
}

/** The page that the path stands for; null when there is none. */
function page_file(string $path): ?string
{
    if (preg_match('~^/[a-z0-9-]+\.php$~D', $path) !== 1 || in_array($path, NOT_A_PAGE, true)) {
        return null;
    }
    $file = __DIR__ . $path;
    return is_file($file) ? $file : null;
}

// No page needs a script or a style within it, so none that anybody brings along runs.
header("Content-Security-Policy: default-src 'self'; form-action 'self'; base-uri 'none'; frame-ancestors 'self'");

$path = strtok($_SERVER["REQUEST_URI"], "?");
if ($path === "/") {
    $path = "/index.php";
}

[$file, $content_type] = static_file($path) ?? [null, null];
if ($file !== null && is_file($file)) {
    header("Content-Type: $content_type");
    header("Cache-Control: no-cache");
    readfile($file);
    return;
}

$page = page_file($path);
if ($page === null) {
    http_response_code(404);
    $page = __DIR__ . "/frame/not-found.php";
}
require $page;
