<?php

require "frame/frame.php";
begin_page();

$formatted = filter_input(INPUT_POST, "Formatted") ?? filter_input(INPUT_GET, "Formatted");
$no_headings = filter_input(INPUT_POST, "NoHeadings") ?? filter_input(INPUT_GET, "NoHeadings");
?>
<form class="fields" method="get">
<label><input type="checkbox" name="Formatted"<?= $formatted ? " checked" : "" ?>> Numbers as on the page</label>
<label><input type="checkbox" name="NoHeadings"<?= $no_headings ? " checked" : "" ?>> No headings in the file</label>
<button>Apply</button>
</form>
<p class="hint">The last button of the bar sends all orders as a file, sorted as on the page.</p>
<?php
$view = new Dralo\DbView();
$view->Hardened = true;
$view->ConnectionString = "Provider=SQLite;Mode=Read;Data Source=" . shop_file();
$view->sql = "SELECT ID, OrderedAt, Company, City, Total FROM OrderTotals";
$view->GridFieldsHide = "City";
$view->GridFormatCellFunction[5] = "FORMATNUMBER,2";
$view->ApplyCellFormattingToExcel = (bool) $formatted;
$view->RecordsPerPage = 10;
$view->ImageDir = "/gfx/";
$view->Width = "100%";

// For the file alone: headings, a colour for every second row, and a hint that the file is UTF-8.
if (isset($_POST["Morvu1ToExcel_x"])) {
    $view->DisplayHeader = !$no_headings;
    $view->TDEvenTag = 'bgcolor="#f0f7f6"';
    $view->GridColHeadAttributes[1] = '><meta charset="utf-8"';
}
$view->WriteHtmlTable();
echo $view->ErrorMessage;

end_page();
