<?php

/**
 * A page with all buttons, hardened unless the request says "Plain", whose policy forbids scripts within it unless the request wants
 * its templates: scripts of these are the page's own.
 */

require "page.inc";

const PLACES = [
    '<b title="#W#">x</b>',
    "<b title='#W#'>x</b>",
    '<b title=#W#>x</b>',
    '<a href="#W#">x</a>',
    '<!-- #W# -->',
    '<b onclick="void(\'#W#\')">x</b>',
    '<b onclick="void(#W#)">x</b>',
    '<script>void("#W#")</script>',
    '<script>void(`#W#`)</script>',
    '<b style="color:#W#">x</b>',
    '<textarea>#W#</textarea>',
    '<b>#W#</b>',
];

$view = new_view();
$view->Hardened = !isset($_GET["Plain"]);
$view->sql = "SELECT ID, W FROM Words";
$view->EditSQL = "SELECT * FROM Words";
$view->DeleteSQL = "DELETE FROM Words";
$view->EditPrimaryKeys = "ID";
$view->EditNewPKStatement = "autoincrement";
$view->EditConfirmDeleteString = "Delete this word?";
$view->DisplayRecordsPerPageSelect = true;
$view->AddEditLookup("Other", "Words", "ID", "W", "", true);
if (isset($_GET["Templates"])) {
    $view->sql = "SELECT ID, W" . str_repeat(", 1", count(PLACES)) . " FROM Words";
    foreach (PLACES as $column => $template) {
        $view->GridFreeFormatCellByCol[$column + 3] = $template;
    }
} else {
    header("Content-Security-Policy: default-src 'self'; form-action 'self'; base-uri 'none'; frame-ancestors 'self'");
}

ob_start();
echo '<!doctype html><html lang="en"><meta charset="utf-8"><title>Test</title><link rel="icon" href="/gfx/nextpg.gif">';
echo '<script src="/dralo.js" defer></script>';
$view->WriteHtmlTable();
echo '<p class="error">', $view->ErrorMessage, '</p>';
