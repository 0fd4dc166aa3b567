<?php
// Notes of one owner, with every kind of view; DRALO_NOTES is the database.
$view = new Dralo\DbView();
$view->ConnectionString = 'Provider=SQLite;Data Source=' . getenv('DRALO_NOTES');
$view->sql = 'SELECT ID, Title, Body FROM Notes WHERE Owner = 7';
$view->EditPrimaryKeys = 'ID';
$view->EditOptions = 'UPDATE DELETE';
$view->DeleteSQL = 'DELETE FROM Notes';
$view->WriteHtmlTable();
