<?php

require "frame/frame.php";
begin_page();

// The search form puts its fields into the address; the grid's own form posts them again when a page is turned.
$search = (string) (filter_input(INPUT_POST, "Search") ?? filter_input(INPUT_GET, "Search"));
$order = (string) (filter_input(INPUT_POST, "Order") ?? filter_input(INPUT_GET, "Order"));
$orders = ["Company" => "Company, ID", "City" => "City, Company, ID", "Newest" => "Since DESC, ID"];
?>
<form class="fields" method="get" role="search">
<label>Company, contact or city <input type="search" name="Search" value="<?= html($search) ?>"></label>
<label>Sort by <select name="Order">
<?php foreach (array_keys($orders) as $name): ?>
<option<?= $name === $order ? " selected" : "" ?>><?= $name ?></option>
<?php endforeach ?>
</select></label>
<button>Search</button>
</form>
<?php
$view = new Dralo\DbView();
$view->Hardened = true;
$view->ConnectionString = "Provider=SQLite;Mode=Read;Data Source=" . shop_file();
$view->sql = "SELECT ID, Company, Contact, City, Country, Since FROM Customers
              WHERE Company LIKE ? OR Contact LIKE ? OR City LIKE ?";
$view->SqlParameters = ["%$search%", "%$search%", "%$search%"];
$view->OrderByFields = $orders[$order] ?? $orders["Company"];
$view->RecordsPerPage = 10;
$view->ImageDir = "/gfx/";
$view->Width = "100%";
$view->WriteHtmlTable();
echo $view->ErrorMessage;
if ($view->RecordCount === 0) {
    echo '<p class="hint">No customer matches.</p>';
}

end_page();
