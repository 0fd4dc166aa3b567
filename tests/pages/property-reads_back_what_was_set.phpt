--TEST--
Property: every writable property reads back what was set, under its own name and in any letter case
--FILE--
<?php
require __DIR__ . '/shop.inc';

// Texts that a setter normalises are chosen so that they are normal already.
const CHOSEN = ['Language' => 'GER', 'Locale' => 'de-DE', 'DatabaseEngine' => 'MSSQL'];
const WRITE_ONLY = ['ADORecordset', 'LanguageString', 'LanguageBtnString', 'LangUpdString', 'GridFreeFormatCell'];
$chosen = CHOSEN + ['ConnectionString' => shop()];

function other(ReflectionProperty $property, mixed $old, array $chosen): mixed
{
    return $chosen[$property->name] ?? match ($property->getType()->getName()) {
        'bool' => !$old,
        'int' => $property->name === 'CursorLocation' ? 3 : $old + 3,
        'string' => 'CELLSPACING=4 X',
        'mixed' => strtoupper(...),
        'array' => [1, 'two', null, 2.5, true],
        default => new ($property->getType()->getName())(),
    };
}

$count = 0;
foreach (['DbView', 'DBConnection', 'Recordset', 'Command'] as $class) {
    foreach ((new ReflectionClass("Dralo\\$class"))->getProperties() as $property) {
        if ($property->isReadOnly()) continue;
        $name = $property->name;
        foreach ([$name, strtolower($name), strtoupper($name), lcfirst($name)] as $spelling) {
            $object = new ("Dralo\\$class")();
            $is_readable = !in_array($name, WRITE_ONLY);
            $value = other($property, $is_readable ? $object->$name : null, $chosen);
            $object->$spelling = $value;
            $count++;
            if (!$is_readable) continue;
            foreach ([$object->$name, $object->$spelling, $property->getValue($object)] as $read) {
                if ($read !== $value) echo "$class::\$$spelling: ", var_export($read, true), " instead of ", var_export($value, true), "\n";
            }
            if (!isset($object->$spelling)) echo "$class::\$$spelling is not set\n";
            if (!property_exists($object, $spelling)) echo "$class::\$$spelling does not exist\n";
            $property->setValue($object, $value);
        }
    }
}
var_dump($count > 4 * 65);
?>
--EXPECT--
bool(true)
