--TEST--
Module: dates and numbers of a view are in the form of its Locale, also those that a visitor types
--INI--
dralo.locale=nb-NO
--FILE--
<?php
require __DIR__ . '/shop.inc';

function values(string $locale): string
{
    $view = shop_view('SELECT Born, Balance, 1 > 0 AS Flag FROM Customers WHERE ID = 1');
    $view->Locale = $locale;
    preg_match_all('/cell_1_[123]"[^>]*>([^<]+)</', html_of($view), $found);
    return "$view->Locale: " . implode(' ', $found[1]) . "\n";
}

echo values(''), values('de-DE'), values('en-US'), values('');

function save(string $locale, string $date): void
{
    $page = new Dralo\Page('/people', '', 'Morvu1FormUpdate=Save&Morvu1PK=1&Morvu1_Form_Born=' . urlencode($date));
    $view = shop_view('SELECT ID, Born FROM Customers');
    $view->OnStartPage($page);
    $view->Locale = $locale;
    $view->EditOptions = 'UPDATE';
    $view->EditPrimaryKeys = 'ID';
    $view->WriteHtmlTable();
    $rows = $view->DrConnection->Connection->Execute('SELECT Born FROM Customers WHERE ID = 1');
    echo "$locale $date: ", $rows->Fields['Born']->Value, " $view->ErrorMessage\n";
}

save('', '3.2.2001');
save('en-US', '3/2/2001');
save('en-GB', '3/2/2001');
try_it(function () { shop_view()->Locale = 'no such place!'; });
?>
--EXPECT--
: 02.01.1990 12,5 1
de-DE: 02.01.1990 12,5 1
en-US: 1/2/1990 12.5 1
: 02.01.1990 12,5 1
 3.2.2001: 2001-02-03 
en-US 3/2/2001: 2001-03-02 
en-GB 3/2/2001: 2001-02-03 
Dralo\Exception: The locale "no such place!" is not known: write a language and a country such as "en-US" or "de-DE", or nothing to take the locale of the environment
