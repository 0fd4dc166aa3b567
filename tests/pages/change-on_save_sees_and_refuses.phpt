--TEST--
Change: OnSave sees the change and refuses it with messages beside the fields
--CGI--
--POST--
Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1FormUpdate=Save&Morvu1_Form_ID=1&Morvu1_Form_Name=Eve&Morvu1_Form_City=Rome
--FILE--
<?php
require __DIR__ . '/shop.inc';

/** Saves the posted form in a shop of its own. */
function save(?callable $on_save, ?callable $on_saved = null): void
{
    $view = shop_view('SELECT ID, Name, City, Born, Balance FROM Customers');
    $view->EditOptions = 'UPDATE';
    $view->EditPrimaryKeys = 'ID';
    $view->FormFieldsHide = 'Born,Balance';
    $view->OnSave = $on_save;
    $view->OnSaved = $on_saved;
    $html = html_of($view);
    echo $GLOBALS['told'];
    preg_match_all('~<span class="DraloFieldNote">.*?</span>|&nbsp;(\[|Record WAS).*?</td>~', $html, $notes);
    echo implode("\n", $notes[0]), "\n", $view->ErrorMessage, "\n";
    $rows = $view->DrConnection->Connection->Execute('SELECT Name, City, Balance FROM Customers WHERE ID=1');
    echo $rows->Fields[0]->Value, ' ', $rows->Fields[1]->Value, ' ', $rows->Fields[2]->Value, "\n";
}

$seen = null;
save(function (Dralo\Change $change) use (&$seen) {
    $seen = $change;
    $GLOBALS['told'] = "$change->Operation " . json_encode($change->Key) . "\n" . json_encode($change->Old) . "\n"
        . json_encode($change->Values) . "\n";
    $change->Refuse('City', 'Not <here>');
    $change->Refuse('', 'Not now');
});
try_it(fn() => $seen->Operation);
try_it(fn() => $seen->Refuse('', 'Too late'));
try_it(fn() => new Dralo\Change());
?>
--EXPECT--
update {"ID":1}
{"ID":1,"Name":"Ann","City":"Bergen","Born":"1990-01-02","Balance":12.5}
{"ID":1,"Name":"Eve","City":"Rome","Born":"1990-01-02","Balance":12.5}
&nbsp;Record WAS NOT SAVED. See the messages beside the fields.<br>Not now</td>
<span class="DraloFieldNote">Not &lt;here&gt;</span>

Ann Bergen 12.5
Error: This change is over
Error: This change is over
Error: Cannot create Dralo\Change: it belongs to another object
