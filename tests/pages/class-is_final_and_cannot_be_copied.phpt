--TEST--
Class: objects are final, equal only to themselves, and cannot be cloned, serialised or given properties
--FILE--
<?php
require __DIR__ . '/shop.inc';

foreach (['DbView', 'DBConnection', 'Connection', 'Recordset', 'Command'] as $name) {
    $class = "Dralo\\$name";
    echo "== $name\n";
    $object = new $class();
    var_dump((new ReflectionClass($class))->isFinal());
    var_dump($object == $object, $object == new $class());
    try_it(fn() => clone $object);
    try_it(fn() => serialize($object));
    try_it(fn() => unserialize('O:' . strlen($class) . ":\"$class\":0:{}"));
    try_it(function () use ($object) { $object->Fresh = 1; });
}
foreach (['Fields', 'Field', 'Parameters', 'IndexedProperty'] as $name) {
    try_it(fn() => new ("Dralo\\$name")());
    try_it(fn() => (new ReflectionClass("Dralo\\$name"))->newInstanceWithoutConstructor());
}
?>
--EXPECT--
== DbView
bool(true)
bool(true)
bool(false)
Error: Trying to clone an uncloneable object of class Dralo\DbView
Exception: Serialization of 'Dralo\DbView' is not allowed
Exception: Unserialization of 'Dralo\DbView' is not allowed
Error: Cannot create dynamic property Dralo\DbView::$Fresh
== DBConnection
bool(true)
bool(true)
bool(false)
Error: Trying to clone an uncloneable object of class Dralo\DBConnection
Exception: Serialization of 'Dralo\DBConnection' is not allowed
Exception: Unserialization of 'Dralo\DBConnection' is not allowed
Error: Cannot create dynamic property Dralo\DBConnection::$Fresh
== Connection
bool(true)
bool(true)
bool(false)
Error: Trying to clone an uncloneable object of class Dralo\Connection
Exception: Serialization of 'Dralo\Connection' is not allowed
Exception: Unserialization of 'Dralo\Connection' is not allowed
Error: Cannot create dynamic property Dralo\Connection::$Fresh
== Recordset
bool(true)
bool(true)
bool(false)
Error: Trying to clone an uncloneable object of class Dralo\Recordset
Exception: Serialization of 'Dralo\Recordset' is not allowed
Exception: Unserialization of 'Dralo\Recordset' is not allowed
Error: Cannot create dynamic property Dralo\Recordset::$Fresh
== Command
bool(true)
bool(true)
bool(false)
Error: Trying to clone an uncloneable object of class Dralo\Command
Exception: Serialization of 'Dralo\Command' is not allowed
Exception: Unserialization of 'Dralo\Command' is not allowed
Error: Cannot create dynamic property Dralo\Command::$Fresh
Error: Cannot create Dralo\Fields: it belongs to another object
ReflectionException: Class Dralo\Fields is an internal class marked as final that cannot be instantiated without invoking its constructor
Error: Cannot create Dralo\Field: it belongs to another object
ReflectionException: Class Dralo\Field is an internal class marked as final that cannot be instantiated without invoking its constructor
Error: Cannot create Dralo\Parameters: it belongs to another object
ReflectionException: Class Dralo\Parameters is an internal class marked as final that cannot be instantiated without invoking its constructor
Error: Cannot create Dralo\IndexedProperty: it belongs to another object
ReflectionException: Class Dralo\IndexedProperty is an internal class marked as final that cannot be instantiated without invoking its constructor
