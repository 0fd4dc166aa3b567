<?php

require "frame/frame.php";

ob_start();
write_head("A database query becomes a web page");
?>
<main>
<h1>A database query becomes a web page</h1>
<p class="about">Dralo takes a query and writes an interactive page: a grid with pages and sorting, one record at a time,
forms that write back, a spreadsheet to download. Each page below shows one thing it does and its own source.</p>
<?php foreach (require "frame/examples.php" as $group => $pages): ?>
<h2><?= html($group) ?></h2>
<ul class="cards">
<?php foreach ($pages as $page => [$title, $about]): ?>
<li><a href="/<?= $page ?>"><img src="/previews/<?= basename($page, ".php") ?>.svg" alt="" width="320" height="160">
<strong><?= html($title) ?></strong><span><?= html($about) ?></span></a></li>
<?php endforeach ?>
</ul>
<?php endforeach ?>
</main>
<?php
write_foot();
