<?php
// Reads the stub as static analysers do, without running it, and compares what it declares with the extension.
// usage: parse_stub.php STUB

require 'PhpParser/autoload.php';

use PhpParser\Node\Stmt;
use PhpParser\ParserFactory;

function parsed(string $stub): array
{
    $factory = new ParserFactory();
    $parser = method_exists($factory, 'createForHostVersion')
        ? $factory->createForHostVersion() : $factory->create(ParserFactory::ONLY_PHP7);
    $traverser = new PhpParser\NodeTraverser();
    $traverser->addVisitor(new PhpParser\NodeVisitor\NameResolver());
    return $traverser->traverse($parser->parse(file_get_contents($stub)));
}

function type(?PhpParser\Node $type): string
{
    return match (true) {
        $type === null => '',
        $type instanceof PhpParser\Node\NullableType => '?' . type($type->type),
        $type instanceof PhpParser\Node\UnionType => implode('|', array_map('type', $type->types)),
        default => ltrim($type->toString(), '\\'),
    };
}

function declared(Stmt\Class_ $class): array
{
    $lines = [];
    foreach ($class->stmts as $part) {
        if ($part instanceof Stmt\ClassConst) {
            foreach ($part->consts as $constant) $lines[] = "const $constant->name = {$constant->value->value}";
        } elseif ($part instanceof Stmt\Property) {
            $modifier = $part->isReadonly() ? 'readonly ' : '';
            foreach ($part->props as $property) $lines[] = $modifier . type($part->type) . " \$$property->name";
            if ($part->getDocComment() === null) $lines[] = "without a word: \${$part->props[0]->name}";
        } elseif ($part instanceof Stmt\ClassMethod) {
            $parameters = array_map(fn($p) => trim(type($p->type) . " \${$p->var->name}"), $part->params);
            $lines[] = "$part->name(" . implode(', ', $parameters) . '): ' . type($part->returnType);
        }
    }
    sort($lines);
    return $lines;
}

function extension_has(ReflectionClass $class): array
{
    $lines = [];
    foreach ($class->getReflectionConstants() as $constant) $lines[] = "const $constant->name = {$constant->getValue()}";
    foreach ($class->getProperties() as $property) {
        if ($property->class === $class->name) {
            $lines[] = ($property->isReadOnly() ? 'readonly ' : '') . $property->getType() . " \$$property->name";
        }
    }
    foreach ($class->getMethods() as $method) {
        if ($method->class !== $class->name) continue;
        $parameters = array_map(fn($p) => trim($p->getType() . " \$$p->name"), $method->getParameters());
        $lines[] = "$method->name(" . implode(', ', $parameters) . "): {$method->getReturnType()}";
    }
    sort($lines);
    return $lines;
}

$differences = [];
$seen = [];
foreach ((new PhpParser\NodeFinder())->findInstanceOf(parsed($argv[1]), Stmt\Class_::class) as $class) {
    $name = $class->namespacedName->toString();
    $seen[] = $name;
    if ($name === 'Dralo\Exception') continue;  // What it has is protected, for subclasses of the page's own.
    $in_stub = declared($class);
    $in_extension = extension_has(new ReflectionClass($name));
    foreach (array_diff($in_stub, $in_extension) as $line) $differences[] = "$name, only in the stub: $line";
    foreach (array_diff($in_extension, $in_stub) as $line) $differences[] = "$name, only in the extension: $line";
}
foreach (array_diff((new ReflectionExtension('dralo'))->getClassNames(), $seen) as $name) $differences[] = "no $name";
echo implode("\n", $differences), count($differences) ? "\n" : count($seen) . " classes are alike\n";
exit($differences || count($seen) < 10 ? 1 : 0);
