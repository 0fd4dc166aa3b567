--TEST--
Request: keys and values of any bytes are read without a warning or a crash
--CGI--
--GET--
Morvu1SQL=SELECT%201%20AS%20%22%00%22&Morvu1OrderByFields=%27%22%3B--&Morvu1FormDisplay=%ff%fe&Morvu1PK=%00&Morvu1=&Morvu=1&%4dorvu1ToExcel=1&Morvu1ToExcel.y=2
--POST_RAW--
Content-Type: application/x-www-form-urlencoded
%00=%00&%ff%ff%ff=%80&Morvu1CurrRecord=%00%01&Morvu1maxrecords=+7+&%=%&%%%=%%%25&a=%u0041&===&&&;=;
--FILE--
<?php
require __DIR__ . '/shop.inc';

foreach (['1', '2', "\0"] as $tag) {
    $view = shop_view();
    $view->Tag = $tag;
    $html = html_of($view);
    echo strlen($html) > 1000 ? 'page' : 'nothing', ' ', addcslashes($view->ErrorMessage, "\0..\37\177..\377"), "\n";
}
?>
--EXPECT--
nothing Morvu1CurrRecord must be a whole number from -2147483648 to 2147483647 in WriteHTMLTable.<br>
page 
page
