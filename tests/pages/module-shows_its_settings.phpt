--TEST--
Module: phpinfo() shows version, engine, libraries and settings, which can only be set by the system
--INI--
dralo.locale=nb-NO
--FILE--
<?php
$module = new ReflectionExtension('dralo');
ob_start();
$module->info();
echo preg_replace(['/\d+\.\d+\.\d+/', '/\d{8}/', '/ \d+\.\d+( [-\d]+)?$/m'], ['N.N.N', 'NNNNNNNN', ' N.N'], ob_get_clean());
var_dump(preg_match('/^\d+\.\d+\.\d+$/', $module->getVersion()), $module->getINIEntries(), 
    ini_set('dralo.locale', 'en-US'), ini_set('dralo.pool_size', '1'), ini_set('dralo.pool_idle_seconds', '1'),
    ini_set('dralo.hardened', '0'), ini_set('dralo.hosts', 'a'), ini_set('dralo.trusted_origins', 'https://a'));
?>
--EXPECT--
dralo

Dralo => enabled
Version => N.N.N
Compiled for PHP => N.N.N
PHP API => NNNNNNNN
Provider SQLite => SQLite N.N.N
Provider PostgreSQL => libpq N.N
Provider MariaDB => libmariadb N.N.N
Provider ODBC => unixODBC, and a driver for each database
Regional settings => ICU N.N
Regular expressions => PCRE2 N.N

Directive => Local Value => Master Value
dralo.hardened => 0 => 0
dralo.hosts => no value => no value
dralo.locale => nb-NO => nb-NO
dralo.pool_idle_seconds => 60 => 60
dralo.pool_size => 8 => 8
dralo.trusted_origins => no value => no value
int(1)
array(6) {
  ["dralo.hardened"]=>
  string(1) "0"
  ["dralo.hosts"]=>
  string(0) ""
  ["dralo.locale"]=>
  string(5) "nb-NO"
  ["dralo.pool_idle_seconds"]=>
  string(2) "60"
  ["dralo.pool_size"]=>
  string(1) "8"
  ["dralo.trusted_origins"]=>
  string(0) ""
}
bool(false)
bool(false)
bool(false)
bool(false)
bool(false)
bool(false)
