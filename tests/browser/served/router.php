<?php

/** Router for the pages that only tests use: pictures of the navigation bar and the script come from the component's own. */

$path = strtok($_SERVER["REQUEST_URI"], "?");
if (preg_match('~^/(gfx/[a-z]+\.gif|dralo\.js)$~D', $path, $found) !== 1) {
    return false;
}
header("Content-Type: " . (str_ends_with($path, ".js") ? "text/javascript" : "image/gif"));
readfile(__DIR__ . "/../../../assets/$found[1]");
