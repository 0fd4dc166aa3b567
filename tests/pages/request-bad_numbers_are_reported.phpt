--TEST--
Request: numbers that are none end up in ErrorMessage, never in a warning
--CGI--
--GET--
Morvu1maxrecords=many&Morvu2CurrRecord=first&Morvu3maxrecords=99999&Morvu4CurrRecord=-5&Morvu4maxrecords=0&Morvu5Bookmark=x&Morvu5FormDisplay=formOneRec
--FILE--
<?php
require __DIR__ . '/shop.inc';

foreach (['1', '2', '3', '4', '5'] as $tag) {
    $view = shop_view();
    $view->Tag = $tag;
    $html = html_of($view);
    echo $tag, ': ', strlen($html) > 0 ? 'page' : 'nothing', ' ', $view->ErrorMessage, ' ', $view->RecordsPerPage, ' ', $view->FromRow, "\n";
}
?>
--EXPECT--
1: nothing Morvu1maxrecords must be a whole number from -32768 to 32767 in WriteHTMLTable.<br> 20 0
2: nothing Morvu2CurrRecord must be a whole number from -2147483648 to 2147483647 in WriteHTMLTable.<br> 20 0
3: nothing Morvu3maxrecords must be a whole number from -32768 to 32767 in WriteHTMLTable.<br> 20 0
4: page  20 1
5: nothing Morvu5BookMark must be a whole number from -2147483648 to 2147483647 in WriteHTMLTable.<br> 20 0
