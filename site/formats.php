<?php

require "frame/frame.php";
begin_page();

// Heading, field, what it comes from, delimiter of a function's arguments, functions.
$grids = [
    ["Numbers", "(InStock - ReorderAt) * Price AS Surplus", "Products WHERE ABS(InStock - ReorderAt) < 25", ",",
        ["FORMATNUMBER,1", "FORMATNUMBER,0,-2,-1,0", "FORMATCURRENCY", "ROUND", "ABS"]],
    ["Parts of one", "Weight", "Products WHERE Weight < 1", ",",
        ["FORMATPERCENT", "FORMATPERCENT,0", "FORMATNUMBER,2,0", "ROUND,1", "FORMAT,0.0%"]],
    ["Patterns for numbers", "Inhabitants", "Countries", "|",
        ["FORMAT|#,##0", "FORMAT|0.0,, \"million\"", "FORMAT|0000000000", "FORMAT|0.00E+00", "FORMAT|Standard"]],
    ["Dates and times", "OrderedAt", "Orders", ",",
        ["FORMATDATETIME,1", "FORMATDATETIME,3", "FORMATDATETIME,4", "DATEADD,d,14", "DATEPART,ww"]],
    ["Patterns for dates and times", "OrderedAt", "Orders", "|",
        ["FORMAT|dddd", "FORMAT|d mmmm yyyy", "FORMAT|yyyy-mm-dd hh:nn", "FORMAT|h AM/PM", "FORMAT|\"Quarter\" q"]],
    ["Texts", "Title", "Employees", ",",
        ["LEFT,4", "RIGHT,5", "MID,3,6", "REPLACE,e,-", "UCASE", "LEN"]],
    ["Capital letters", "UPPER(Title) AS Capitals", "Employees", ",",
        ["LCASE", "INITCAPS", "INITCAPSALL"]],
    ["Patterns for texts", "Code", "Countries", "|",
        ["FORMAT|<", "FORMAT|@.@.", "FORMAT|\"Country\" &&", "FORMAT|!@@@@-"]],
    ["Regular expressions", "Phone", "Customers", "|",
        ["REGEXPREPLACE|/\D/g", "REGEXPREPLACE|/^\+(\d+)/|(00$1)", "REGEXPREPLACE|/\d(?=\d\d)/g|x"]],
];

$connection = new Dralo\DBConnection();
$connection->Connection->Open("Provider=SQLite;Mode=Read;Data Source=" . shop_file());

foreach ($grids as $number => [$heading, $field, $source, $delimiter, $functions]) {
    $expression = explode(" AS ", $field)[0];
    $captions = array_map(fn (string $text): string => "<code>" . str_replace(",", "&#44;", html($text)) . "</code>", $functions);

    $view = new Dralo\DbView();
    $view->Hardened = true;
    $view->Tag = (string) ($number + 1);
    $view->DrConnection = $connection;
    $view->sql = "SELECT $field" . str_repeat(", $expression", count($functions)) . " FROM $source LIMIT 5";
    $view->GridDisplayFieldNames = "," . implode(",", $captions);
    $view->GridColsNoSort = "*";
    $view->GridDisplayIndex = false;
    $view->DisplayNavBar = "none";
    $view->GridFreeFormatCellColumnDelimiter = $delimiter;
    foreach ($functions as $place => $function) {
        $view->GridFormatCellFunction[$place + 2] = $function;
    }
    $view->Width = "100%";

    echo "<h2>$heading</h2>";
    $view->WriteHtmlTable();
    echo $view->ErrorMessage;
}

end_page();
