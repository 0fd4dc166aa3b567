<?php

require "frame/frame.php";
begin_page();

// Next and previous come twice: in the form that goes with "record" and in the one that goes with "page".
const POLISH = "Następny,Następna,Poprzedni,Poprzednia,Rekord,Rekordy,Lista,z,"
    . "Pierwsza,Ostatnia,Rekordów na stronie,Strona";

$languages = [
    ["en", "English", "ENG", "Product,Category,Price"],
    ["de", "Deutsch", "GER", "Produkt,Gruppe,Preis"],
    ["no", "Norsk", "NOR", "Vare,Gruppe,Pris"],
    ["pl", "Polski", "own", "Produkt,Grupa,Cena"],
];

echo '<div class="side-by-side">';
foreach ($languages as $number => [$code, $name, $language, $headings]) {
    $view = new Dralo\DbView();
    $view->Hardened = true;
    $view->Tag = (string) ($number + 1);
    $view->ConnectionString = "Provider=SQLite;Mode=Read;Data Source=" . shop_file();
    $view->sql = "SELECT Products.Name, Categories.Name, Price
                  FROM Products JOIN Categories ON Categories.ID = Products.Category";
    if ($language === "own") {
        $view->LanguageString = POLISH;
        $view->LanguageBtnString = "Edytuj,Zapisz,Zamknij,Dodaj,Usuń";
        $view->LangUpdString = "[Dodano rekord],[Zapisano rekord],[Usunięto rekord],Uzupełnij wymagane pola.";
    } else {
        $view->Language = $language;
    }
    $view->OrderByFields = "1";
    $view->GridDisplayFieldNames = $headings;
    $view->GridFormatCellFunction[3] = "FORMATNUMBER,2";
    $view->DisplayRecordsPerPageSelect = true;
    $view->RecordsPerPageOptions = "4,8,16";
    $view->RecordsPerPage = 4;
    $view->ImageDir = "/gfx/";
    $view->Width = "100%";

    echo "<section lang=\"$code\"><h2>$name</h2>";
    $view->WriteHtmlTable();
    echo $view->ErrorMessage, "</section>\n";
}
echo "</div>";

end_page();
