<?php

/**
 * What the pages of this site have in common: header, navigation, the page's own source, footer.
 *
 * A page calls begin_page(), writes its example and calls end_page(). Its title and the sentence about it stand in
 * examples.php.
 */

declare(strict_types=1);

require_once __DIR__ . "/source.php";

/** The database file of the example shop. */
function shop_file(): string
{
    return getenv("DRALO_SHOP_DB") ?: dirname(__DIR__, 2) . "/build/demo/shop.db";
}

/**
 * The database file of the shop whose records visitors may edit. ./demo makes it anew at each start; where there is none
 * it is the shop itself.
 */
function open_shop_file(): string
{
    return getenv("DRALO_OPEN_SHOP_DB") ?: shop_file();
}

function html(string $text): string
{
    return htmlspecialchars($text, ENT_QUOTES | ENT_SUBSTITUTE | ENT_HTML5);
}

/** The name of the page that was asked for, such as "grid.php". */
function page_name(): string
{
    return basename($_SERVER["SCRIPT_NAME"]);
}

/** All examples, page => [title, sentence]. */
function examples(): array
{
    return array_merge(...array_values(require __DIR__ . "/examples.php"));
}

/**
 * Writes everything above the example. The page is collected until it is complete: a spreadsheet export drops what
 * was written so far and answers with a file instead.
 */
function begin_page(?string $title = null, string $about = ""): void
{
    ob_start();
    [$title, $about] = $title === null ? examples()[page_name()] : [$title, $about];
    write_head($title);
    echo '<main><h1>', html($title), '</h1>';
    if ($about !== "") {
        echo '<p class="about">', html($about), '</p>';
    }
    echo "<section class=\"example\">\n";
}

/** Writes the source of the page that calls it and everything below the example. */
function end_page(): void
{
    echo "\n</section>\n";
    write_source(dirname(__DIR__) . "/" . page_name());
    echo "</main>\n";
    write_foot();
}

function write_head(string $title): void
{
    ?>
<!doctype html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title><?= html($title) ?> – Dralo</title>
<link rel="icon" href="/icon.svg" type="image/svg+xml">
<link rel="stylesheet" href="/dralo.css">
<link rel="stylesheet" href="/site.css">
<script src="/dralo.js" defer></script>
</head>
<body>
<a class="skip" href="#content">Skip to the example</a>
<header><a class="brand" href="/"><img src="/icon.svg" alt="" width="28" height="28">Dralo</a><span>Example shop</span></header>
<nav aria-label="Examples">
<?php foreach (require __DIR__ . "/examples.php" as $group => $pages): ?>
<h2><?= html($group) ?></h2>
<ul>
<?php foreach ($pages as $page => [$name]): ?>
<li><a href="/<?= $page ?>"<?= $page === page_name() ? ' aria-current="page"' : "" ?>><?= html($name) ?></a></li>
<?php endforeach ?>
</ul>
<?php endforeach ?>
</nav>
<div id="content">
<?php
}

function write_foot(): void
{
    ?>
</div>
<footer>Every page of this site is a PHP file of a few lines; what it shows comes from a SQLite database of a shop that does
not exist.</footer>
</body>
</html>
<?php
}
