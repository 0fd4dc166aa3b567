--TEST--
Page: a grid is written completely, and a row's values are there afterwards
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = shop_view('SELECT ID, Name, City, Born, Balance FROM Customers ORDER BY ID');
$view->GridDisplayFieldNames = 'No,Customer';
$view->GridFreeFormatCellByCol[2] = '<b>#Name#</b>';
$view->GridColAttributes[3] = 'align="center"';
$view->FooterText = 'as of today';
echo "before\n";
$view->WriteHtmlTable();
echo "after\n";
var_dump($view->ErrorMessage, $view->RecordCount, $view->FromRow, $view->ToRow, $view->CurrentMode);
var_dump($view->CurrentRecord(1), $view->CurrentRecord[2], $view->currentrecord(4), $view->CurrentRecord(5), $view->CurrentRecord(6));
?>
--EXPECT--
before


<!-- Dralo -->

<table border="0" cellspacing="0" cellpadding="0">
<form name="FormDraloGrid1" id="FormDraloGrid1" action="/shop.php" method="post">
<tr><td width="100%" class="DRLOTableHeader"></td></tr>
<tr><td valign=top align=left>
<table width="100%" class="DRLOTable" cols="6">
<tr class="DRLOTableTR">
<th class="DRLOTableTH">#</th>
<th align="right" class="DRLOTableTH">No</th>
<th align="left" class="DRLOTableTH">Customer</th>
<th align="left" class="DRLOTableTH">City</th>
<th align="left" class="DRLOTableTH">Born</th>
<th align="right" class="DRLOTableTH">Balance</th>
</tr>
<tr id="drl1row_1"class="DRLOTableTRodd">
<td id="drl1cell_1_0"class="DRLOTableTDodd"><a class="DRLOTable" href="/shop.php?Morvu1FormDisplay=formOneRec&Morvu1BookMark=1&Morvu1OrderByFields=&Morvu1CurrRecord=1&Morvu1CountRecords=on&Morvu1maxrecords=20">1</a></td>
<td id="drl1cell_1_1"class="DRLOTableTDodd" align="right">1</td>
<td id="drl1cell_1_2"class="DRLOTableTDodd"><b>Ann</b></td>
<td id="drl1cell_1_3"class="DRLOTableTDodd" align="center">Bergen</td>
<td id="drl1cell_1_4"class="DRLOTableTDodd">1/2/1990</td>
<td id="drl1cell_1_5"class="DRLOTableTDodd" align="right">12.5</td>
</tr>
<tr id="drl1row_2"class="DRLOTableTReven">
<td id="drl1cell_2_0"class="DRLOTableTDeven"><a class="DRLOTable" href="/shop.php?Morvu1FormDisplay=formOneRec&Morvu1BookMark=2&Morvu1OrderByFields=&Morvu1CurrRecord=2&Morvu1CountRecords=on&Morvu1maxrecords=20">2</a></td>
<td id="drl1cell_2_1"class="DRLOTableTDeven" align="right">2</td>
<td id="drl1cell_2_2"class="DRLOTableTDeven"><b>Bob</b></td>
<td id="drl1cell_2_3"class="DRLOTableTDeven" align="center">&nbsp;</td>
<td id="drl1cell_2_4"class="DRLOTableTDeven">&nbsp;</td>
<td id="drl1cell_2_5"class="DRLOTableTDeven" align="right">-3</td>
</tr>
<tr id="drl1row_3"class="DRLOTableTRodd">
<td id="drl1cell_3_0"class="DRLOTableTDodd"><a class="DRLOTable" href="/shop.php?Morvu1FormDisplay=formOneRec&Morvu1BookMark=3&Morvu1OrderByFields=&Morvu1CurrRecord=3&Morvu1CountRecords=on&Morvu1maxrecords=20">3</a></td>
<td id="drl1cell_3_1"class="DRLOTableTDodd" align="right">3</td>
<td id="drl1cell_3_2"class="DRLOTableTDodd"><b>Cid & "Co"</b></td>
<td id="drl1cell_3_3"class="DRLOTableTDodd" align="center">Oslo</td>
<td id="drl1cell_3_4"class="DRLOTableTDodd">12/31/2000</td>
<td id="drl1cell_3_5"class="DRLOTableTDodd" align="right">&nbsp;</td>
</tr>
</table></td></tr>
<input type="hidden" name="Morvu1CurrRecord" value="1">
<input type="hidden" name="Morvu1CountRecords" value="on">
<input type="hidden" name="Morvu1maxrecords" value="20">
<input type="hidden" name="Morvu1FormDisplay" value="">
<input type="hidden" name="Morvu1OrderByFields" value="">
<input type="hidden" name="Morvu1OrderByDesc" value="">
<tr><th nowrap align="left" class="DRLOTableNavBar"colspan=6>
<table width="100%" cellpadding=0 cellspacing=0>
<tr><td width="1%" class="DRLOTableNavBar"nowrap align="left"><img src="../gfx/firstpgd.gif" border="0"><img src="../gfx/prevpgd.gif" border="0"><img src="../gfx/nextpgd.gif" border="0"><img src="../gfx/lastpgd.gif" border="0"></td>
<td width="1%" class="DRLOTableNavBar"nowrap align="left"> Records (1..3) of 3&nbsp;&nbsp;Page 1 of 1</td>
<td width="99%" class="DRLOTableNavBar"nowrap align="right"> &nbsp;<input title="Excel export" type="image" name="Morvu1ToExcel" border=0 src="../gfx/excel.gif"></td>
</tr></table></th></tr>
<tr><td class="DRLOTableInfoFooter">as of today</td></tr>
</form>
</table>
after
string(0) ""
int(3)
int(1)
int(3)
string(4) "grid"
int(1)
string(3) "Ann"
string(10) "1990-01-02"
float(12.5)
string(0) ""
