--TEST--
Property: reflection tells the default of every property that can be read and is no list of columns
--FILE--
<?php
$new = new Dralo\DbView();
$told = 0;
$not_told = [];
foreach ((new ReflectionClass($new))->getProperties() as $property) {
    if (!$property->hasDefaultValue()) {
        $not_told[] = $property->name;
    } elseif ($property->getDefaultValue() !== $property->getValue($new)) {
        echo "$property->name is another one\n";
    } else {
        ++$told;
    }
}
var_dump($told > 80);
echo implode(' ', $not_told), "\n";
var_dump((new ReflectionProperty('Dralo\DbView', 'Language'))->getDefaultValue());
$changed = new Dralo\DbView();
$changed->Language = 'NOR';
var_dump($changed->Language, (new Dralo\DbView())->Language, get_class_vars('Dralo\DbView')['Language']);
?>
--EXPECT--
bool(true)
ADORecordset CurrentMode LanguageString LanguageBtnString LangUpdString GridFreeFormatCell CurrentRecord GridFreeFormatCellByCol GridFormatCellFunction GridColAttributes GridColHeadAttributes EditRules
string(3) "ENG"
string(3) "NOR"
string(3) "ENG"
string(3) "ENG"
