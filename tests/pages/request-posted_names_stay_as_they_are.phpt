--TEST--
Request: posted names keep points, blanks, brackets and repetitions; empty pairs and empty names are skipped
--CGI--
--GET--
q.s=1&q.s=2&&=x&lone&%zz=%4
--POST_RAW--
Content-Type: application/x-www-form-urlencoded
a.b=1&a.b=2&a[]=3&a[]=4&with+blank=x+y&%C3%A6%00%ff=%22q%22&&=nameless&lone&&x=&Morvu1CurrRecord=2&morvu1MAXRECORDS=2&a[b][c=5&%zz=%4
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = shop_view();
preg_match_all('/<input type="hidden" [^>]*>/', html_of($view), $found);
foreach ($found[0] as $input) echo addcslashes($input, "\0..\37\177..\377"), "\n";
echo $view->ErrorMessage, $view->RecordsPerPage, ' ', $view->FromRow, "\n";
?>
--EXPECT--
<input type="hidden" name="Morvu1CurrRecord" value="2">
<input type="hidden" name="Morvu1CountRecords" value="on">
<input type="hidden" name="Morvu1maxrecords" value="2">
<input type="hidden" name="Morvu1FormDisplay" value="">
<input type="hidden" name="Morvu1OrderByFields" value="">
<input type="hidden" name="Morvu1OrderByDesc" value="">
<input type="hidden" name="q.s" value="1">
<input type="hidden" name="q.s" value="2">
<input type="hidden" name="lone" value="">
<input type="hidden" name="%zz" value="%4">
<input type="hidden" name="a.b" value="1">
<input type="hidden" name="a.b" value="2">
<input type="hidden" name="a[]" value="3">
<input type="hidden" name="a[]" value="4">
<input type="hidden" name="with blank" value="x y">
<input type="hidden" name="\303\246\000\377" value="&quot;q&quot;">
<input type="hidden" name="lone" value="">
<input type="hidden" name="x" value="">
<input type="hidden" name="morvu1MAXRECORDS" value="2">
<input type="hidden" name="a[b][c" value="5">
<input type="hidden" name="%zz" value="%4">
2 2
