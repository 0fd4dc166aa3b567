--TEST--
Stub: the declarations that editors read are the classes and functions of the extension
--FILE--
<?php
$stub = file_get_contents(getenv('DRALO_STUB'));
eval('?>' . str_replace('namespace Dralo;', 'namespace DraloStub;', $stub));

function described(ReflectionFunctionAbstract $function): string
{
    $parameters = array_map(fn($p) => "$p->name: {$p->getType()}" . ($p->isPassedByReference() ? ' by reference' : '')
        . ($p->isOptional() ? ' = ' . var_export($p->getDefaultValue(), true) : ''), $function->getParameters());
    return $function->getShortName() . '(' . implode(', ', $parameters) . "): {$function->getReturnType()}";
}

function members(string $name, string $namespace): array
{
    $class = new ReflectionClass("$namespace\\$name");
    $lines = ["class final: " . var_export($class->isFinal(), true) . ' extends ' . ($class->getParentClass() ?: null)?->name];
    foreach ($class->getInterfaceNames() as $interface) $lines[] = "implements $interface";
    foreach ($class->getProperties() as $p) {
        if ($p->class !== $class->name) continue;
        $comment = str_replace(' Write-only. */', ' */', (string)$p->getDocComment());
        $lines[] = "property $p->name: {$p->getType()} " . implode(' ', Reflection::getModifierNames($p->getModifiers())) . " $comment";
    }
    foreach ($class->getReflectionConstants() as $c) $lines[] = "constant $c->name = {$c->getValue()} {$c->getDocComment()}";
    foreach ($class->getMethods() as $m) {
        if ($m->class === $class->name) $lines[] = implode(' ', Reflection::getModifierNames($m->getModifiers())) . ' method ' . described($m);
    }
    sort($lines);
    return str_replace('DraloStub\\', 'Dralo\\', $lines);
}

$module = new ReflectionExtension('dralo');
$classes = array_map(fn($name) => substr($name, strlen('Dralo\\')), $module->getClassNames());
$in_stub = array_filter(get_declared_classes(), fn($name) => str_starts_with($name, 'DraloStub\\'));
sort($classes);
$in_stub = array_map(fn($name) => substr($name, strlen('DraloStub\\')), $in_stub);
sort($in_stub);
var_dump($classes === $in_stub, count($classes));
foreach ($classes as $name) {
    $ours = members($name, 'Dralo');
    $stubs = members($name, 'DraloStub');
    foreach (array_diff($ours, $stubs) as $line) echo "$name, only in the extension: $line\n";
    foreach (array_diff($stubs, $ours) as $line) echo "$name, only in the stub: $line\n";
    if (count($ours) < 2) echo "$name has no members\n";
}
var_dump(array_keys($module->getFunctions()));
var_dump(described(new ReflectionFunction('Dralo\CreateObject')) === described(new ReflectionFunction('DraloStub\CreateObject')));
?>
--EXPECT--
bool(true)
int(12)
array(1) {
  [0]=>
  string(18) "Dralo\CreateObject"
}
bool(true)
