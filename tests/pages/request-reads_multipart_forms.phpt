--TEST--
Request: a multipart form is read whole with its names as they are, without its files
--CGI--
--INI--
max_input_vars=2
display_startup_errors=0
display_errors=0
--POST_RAW--
Content-Type: multipart/form-data; boundary=limit
--limit
Content-Disposition: form-data; name="a.b"

1
--limit
Content-Disposition: form-data; name="a.b"

2 "two"
--limit
Content-Disposition: form-data; name="upload"; filename="file.txt"
Content-Type: text/plain

content
--limit
Content-Disposition: form-data; name="Morvu1CurrRecord"

3
--limit
Content-Disposition: form-data; name="list[]"

x=1&y
--limit--
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = shop_view();
preg_match_all('/<input type="hidden" [^>]*>/', html_of($view), $found);
echo implode("\n", $found[0]), "\n";
echo $view->ErrorMessage, $view->FromRow, ' ', $_FILES['upload']['size'], "\n";
?>
--EXPECT--
<input type="hidden" name="Morvu1CurrRecord" value="3">
<input type="hidden" name="Morvu1CountRecords" value="on">
<input type="hidden" name="Morvu1maxrecords" value="20">
<input type="hidden" name="Morvu1FormDisplay" value="">
<input type="hidden" name="Morvu1OrderByFields" value="">
<input type="hidden" name="Morvu1OrderByDesc" value="">
<input type="hidden" name="a.b" value="1">
<input type="hidden" name="a.b" value="2 &quot;two&quot;">
<input type="hidden" name="list[]" value="x=1&y">
3 7
