<?php

/** Renders pages of the example shop's customers: hardened.php SHOP HARDENED ROWS PAGES */

[, $shop, $hardened, $rows, $pages] = $argv;
for ($page = 0; $page < (int) $pages; $page++) {
    $view = new Dralo\DbView();
    $view->Hardened = $hardened === "1";
    $view->ConnectionString = "Provider=SQLite;Mode=Read;Data Source=$shop";
    $view->sql = "SELECT ID, Company, Contact, City, Country, Since, CreditLimit FROM Customers";
    $view->EditPrimaryKeys = "ID";
    $view->OrderByFields = "1";
    $view->RecordsPerPage = (int) $rows;
    ob_start();
    $view->WriteHtmlTable();
    ob_end_clean();
    if ($view->ErrorMessage !== "") {
        fwrite(STDERR, $view->ErrorMessage . "\n");
        exit(1);
    }
}
