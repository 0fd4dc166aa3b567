--TEST--
Security: a hardened view asks a function of the page for the token of its forms, and whether it knows a posted one
--INI--
output_buffering=65536
--POST--
Morvu1FormDisplay=formOneRec&Morvu1FormEdit=1&Morvu1FormUpdate=Save&Morvu1PK=1&Morvu1_Form_ID=1&Morvu1_Form_Name=Eve&Morvu1Token=guess
--FILE--
<?php
require __DIR__ . '/shop.inc';

$_SERVER['HTTP_SEC_FETCH_SITE'] = 'same-origin';
$view = shop_view('SELECT ID, Name FROM Customers');
$view->Hardened = true;
$view->EditOptions = 'UPDATE';
$view->EditPrimaryKeys = 'ID';
$asked = [];
$view->TokenCallback = $function = function (?string $token) use (&$asked, $view): string|bool {
    $asked[] = $token;
    try_it(fn() => $view->EditOptions = 'ALL');
    return $token === null ? 'the session\'s' : hash_equals('the session\'s', $token);
};
var_dump($view->TokenCallback === $function);
$page = html_of($view);
echo strip_tags($view->ErrorMessage), "\n";
preg_match('/name="Morvu1Token" value="[^"]*"/', $page, $token);
echo json_encode($asked), ' ', $token[0], "\n";
echo preg_match('/value="Eve"/', $page), "\n";
echo $view->DrConnection->Connection->Execute('SELECT Name FROM Customers WHERE ID = 1')->Fields['Name']->Value, "\n";
try_it(fn() => $view->TokenCallback = 7);
$view->TokenCallback = null;
var_dump($view->TokenCallback);
?>
--EXPECTHEADERS--
Status: 403 Forbidden
--EXPECT--
bool(true)
Message 22: Nothing was changed: the form has expired. Send it again.
["guess",null] name="Morvu1Token" value="the session&#39;s"
1
Ann
TypeError: Dralo\DbView::$TokenCallback must be a function or null
NULL
