--TEST--
Handed page: redirects and refusals of a hardened view are the page's status and headers
--INI--
dralo.hosts=shop.example
error_log=/dev/null
--FILE--
<?php
require __DIR__ . '/shop.inc';

function save(array $server): Dralo\Page
{
    $page = new Dralo\Page('/notes', '', 'Morvu1FormUpdate=Save&Morvu1PK=1&Morvu1_Form_Name=New&Morvu1_Was_Name=' . $_SERVER['digest'],
        'application/x-www-form-urlencoded', $server);
    $view = shop_view('SELECT ID, Name FROM Customers');
    $view->OnStartPage($page);
    $view->Hardened = true;
    $view->EditOptions = 'UPDATE';
    $view->EditPrimaryKeys = 'ID';
    $view->ReceivePost();
    echo $page->status(), ' ', $page->headers()['Location'] ?? 'stays', ' ', var_export($page->ended(), true), ' ', $page->body(), "\n";
    $view->WriteHtmlTable();
    $view->DrConnection = null;
    $connection = new Dralo\Connection();
    $connection->Open('Provider=SQLite;Data Source=' . shop_file());
    echo $connection->Execute('SELECT Name FROM Customers WHERE ID = 1')->Fields[0]->Value, ' ',
        strip_tags($view->ErrorMessage), ' ', strlen($page->body()) > 0 ? 'page' : 'no page', "\n";
    return $page;
}

$own = ['REQUEST_METHOD' => 'POST', 'HTTP_HOST' => 'shop.example', 'HTTP_ORIGIN' => 'https://shop.example', 'HTTP_SEC_FETCH_SITE' => 'same-origin'];
$form = new Dralo\Page('/notes', '', 'Morvu1FormEdit=1&Morvu1FormDisplay=formOneRec&Morvu1PK=1', server: $own);
$view = shop_view('SELECT ID, Name FROM Customers');
$view->OnStartPage($form);
$view->Hardened = true;
$view->EditOptions = 'UPDATE';
$view->EditPrimaryKeys = 'ID';
$view->WriteHtmlTable();
preg_match('/name="Morvu1_Was_Name" value="([^"]*)"/', $form->body(), $found);
$_SERVER['digest'] = $found[1] ?? 'none';
unset($view);

save($own);
save(['HTTP_ORIGIN' => 'https://evil.example', 'HTTP_SEC_FETCH_SITE' => 'cross-site'] + $own);
save(['HTTP_HOST' => 'other.example'] + $own);
save(['REQUEST_METHOD' => 'GET'] + $own);
?>
--EXPECT--
303 /notes?Morvu1CurrRecord=1&Morvu1maxrecords=20&Morvu1CountRecords=on&Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1Done=u true 
New  no page
403 stays false 
Ann Message 12: Nothing was changed: the request came from another site. page
421 stays false 
Ann Message 16: This site does not answer under that name.Message 16: This site does not answer under that name. no page
200 stays false 
Ann  page
