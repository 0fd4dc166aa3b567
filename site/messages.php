<?php

require "frame/frame.php";
begin_page();

$languages = [
    "ENG" => ["en", "English", "Task,Due on,Who,Hours,Done", "Delete this reminder?"],
    "GER" => ["de", "Deutsch", "Aufgabe,Bis,Wer,Stunden,Erledigt", "Diese Aufgabe löschen?"],
    "NOR" => ["no", "Norsk", "Oppgave,Frist,Hvem,Timer,Ferdig", "Slette denne oppgaven?"],
];
$language = (string) (filter_input(INPUT_POST, "Language") ?? filter_input(INPUT_GET, "Language"));
$language = isset($languages[$language]) ? $language : "ENG";
[$code, , $captions, $question] = $languages[$language];
?>
<form class="fields" method="get">
<label>Language <select name="Language">
<?php foreach ($languages as $name => [, $own_name]): ?>
<option value="<?= $name ?>"<?= $name === $language ? " selected" : "" ?>><?= $own_name ?></option>
<?php endforeach ?>
</select></label>
<button>Show</button>
</form>
<?php
$view = new Dralo\DbView();
$view->Hardened = true;
$view->ConnectionString = "Provider=SQLite;Data Source=" . open_shop_file();
$view->sql = "SELECT ID, Task, DueOn,
                     (SELECT FamilyName FROM Employees WHERE Employees.ID = Employee) AS FamilyName, Hours, Done
              FROM Reminders";
$view->EditSQL = "SELECT ID, Task, DueOn, Employee, Hours, Done FROM Reminders";
$view->DeleteSQL = "DELETE FROM Reminders";
$view->EditOptions = "ALL";
$view->EditPrimaryKeys = "ID";
$view->EditNewPKStatement = "autoincrement";
$view->EditFieldsReadOnly = "ID";
$view->AddEditLookup("Employee", "Employees", "ID", "FamilyName", "FamilyName", true);

$view->Language = $language;
if ($language === "GER") {
    // Buttons and messages are English here, unless the page brings its own.
    $view->LanguageBtnString = "Bearbeiten,Speichern,Schließen,Neu,Löschen";
    $view->LangUpdString = "[Neuer Datensatz gespeichert],[Datensatz gespeichert],[Datensatz gelöscht],"
        . "NICHT GESPEICHERT: Bitte alle Pflichtfelder ausfüllen.";
}
$view->EditConfirmDeleteString = $question;
$view->GridFieldsHide = "ID";
$view->GridDisplayFieldNames = ",$captions";
$view->FormDisplayFieldNames = ",$captions";
$view->RecordsPerPage = 6;
$view->ImageDir = "/gfx/";
$view->Width = "100%";

echo "<section lang=\"$code\">";
$view->WriteHtmlTable();
echo $view->ErrorMessage, "</section>\n";
?>
<p class="hint">To see a failure, save a reminder without a task, due on "tomorrow", or taking "two" hours. What you save stays
until the demo is started again, for all visitors; there is room for 100.</p>
<?php
end_page();
