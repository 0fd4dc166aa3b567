<?php

/** Router for the pages that only tests use: the pictures of the navigation bar come from the component's own. */

$path = strtok($_SERVER["REQUEST_URI"], "?");
if (preg_match('~^/(gfx/[a-z]+\.gif)$~D', $path, $found) !== 1) {
    return false;
}
header("Content-Type: image/gif");
readfile(__DIR__ . "/../../../assets/$found[1]");
