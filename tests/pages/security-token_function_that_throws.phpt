--TEST--
Security: what the function for tokens throws becomes a message, and nothing is changed
--INI--
output_buffering=65536
error_log=/dev/null
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
$view->TokenCallback = fn(?string $token) => throw new RuntimeException('no session');
$page = html_of($view);
echo $view->ErrorDetail, "\n";
var_dump(str_contains($page, 'Token'), http_response_code());
echo $view->DrConnection->Connection->Execute('SELECT Name FROM Customers WHERE ID = 1')->Fields['Name']->Value, "\n";
?>
--EXPECTF--
%Ano session in TokenCallback%A
bool(false)
int(403)
Ann
