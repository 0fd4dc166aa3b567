<?php

require_once __DIR__ . "/frame.php";

ob_start();
write_head("Not found");
?>
<main><h1>There is no such page</h1>
<p class="about">The examples are in the list; the <a href="/">start page</a> says what each of them shows.</p></main>
<?php
write_foot();
