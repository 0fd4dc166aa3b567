--TEST--
Property: values are converted as for any typed property; true has all bits set in a number
--FILE--
<?php
$view = new Dralo\DbView();
$view->RecordsPerPage = '15';    var_dump($view->RecordsPerPage);
$view->RecordsPerPage = 16.0;    var_dump($view->RecordsPerPage);
$view->RecordsMaxLimit = 100000; $view->RecordsPerPage = 90000; var_dump($view->RecordsPerPage);
$view->RecordsPerPage = 100000;  var_dump($view->RecordsPerPage);
$view->GridLinkIndex = true;     var_dump($view->GridLinkIndex);
$view->GridLinkIndex = false;    var_dump($view->GridLinkIndex);
$view->RecordCount = true;       var_dump($view->RecordCount);
$view->RecordCount = false;      var_dump($view->RecordCount);
$view->MemoFieldLimit = true;    var_dump($view->MemoFieldLimit);
$view->UseCSS = 0;               var_dump($view->UseCSS);
$view->UseCSS = 'yes';           var_dump($view->UseCSS);
$view->Tag = 7;                  var_dump($view->Tag);
$view->Tag = 1.5;                var_dump($view->Tag);
$view->Tag = true;               var_dump($view->Tag);
$view->FooterText = new class { public function __toString(): string { return "made\0of a \xff string"; } };
var_dump(bin2hex($view->FooterText));
$referenced = 'by reference';
$reference = &$referenced;
$view->FooterText = $reference;  var_dump($view->FooterText);
?>
--EXPECT--
int(15)
int(16)
int(16)
int(16)
int(-1)
int(0)
int(-1)
int(0)
int(-1)
bool(false)
bool(true)
string(1) "7"
string(3) "1.5"
string(1) "1"
string(36) "6d616465006f66206120ff20737472696e67"
string(12) "by reference"
