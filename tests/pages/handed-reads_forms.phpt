--TEST--
Handed page: query and body are those that were handed over, a multipart form whole with its names as they are
--CGI--
--INI--
max_input_vars=2
display_startup_errors=0
display_errors=0
--POST_RAW--
Content-Type: multipart/form-data; boundary=limit
--limit
Content-Disposition: form-data; name="a.b"

1
--limit
Content-Disposition: form-data; name="a.b"

2 "two"
--limit
Content-Disposition: form-data; name="Morvu1CurrRecord"

3
--limit--
--FILE--
<?php
require __DIR__ . '/shop.inc';

function show(string $title, Dralo\Page $page): void
{
    $view = shop_view();
    $view->OnStartPage($page);
    $view->WriteHtmlTable();
    preg_match_all('/(?:action|name="(?:Morvu1CurrRecord|a\.b|list\[\])" value)="[^"]*"/', $page->body(), $found);
    echo "== $title\n", implode("\n", $found[0]), "\n", $view->ErrorMessage;
}

$body = file_get_contents(__FILE__, offset: __COMPILER_HALT_OFFSET__ + 1);
$type = 'multipart/form-data; boundary="other limit"';
show('query', new Dralo\Page('/x', 'Morvu1CurrRecord=2&a.b=%22'));
show('form', new Dralo\Page('/x', 'Morvu1CurrRecord=2&a.b=0', 'a.b=1&Morvu1CurrRecord=3&a.b='));
show('no form', new Dralo\Page('/x', 'Morvu1CurrRecord=2', '{"Morvu1CurrRecord":3}', 'application/json'));
show('multipart', new Dralo\Page('/x', '', $body, $type));
show('multipart that PHP has read', new Dralo\Page('/x', '', '', $_SERVER['CONTENT_TYPE']));
show('globals', Dralo\Page::fromGlobals());
show('globals under another name', Dralo\Page::fromGlobals(scriptName: '/customers'));
__halt_compiler();
--other limit
Content-Disposition: form-data; name="a.b"

4
--other limit
Content-Disposition: form-data; name="upload"; filename="file.txt"
Content-Type: text/plain

content
--other limit
Content-Disposition: form-data; name="list[]"

x=1&y
--other limit--
--EXPECT--
== query
action="/x"
name="Morvu1CurrRecord" value="2"
name="a.b" value="&quot;"
== form
action="/x"
name="Morvu1CurrRecord" value="3"
name="a.b" value="0"
name="a.b" value="1"
name="a.b" value=""
== no form
action="/x"
name="Morvu1CurrRecord" value="2"
== multipart
action="/x"
name="Morvu1CurrRecord" value="1"
name="a.b" value="4"
name="list[]" value="x=1&y"
== multipart that PHP has read
action="/x"
name="Morvu1CurrRecord" value="3"
name="a.b" value="1"
name="a.b" value="2 &quot;two&quot;"
== globals
action="/shop.php"
name="Morvu1CurrRecord" value="3"
name="a.b" value="1"
name="a.b" value="2 &quot;two&quot;"
== globals under another name
action="/customers"
name="Morvu1CurrRecord" value="3"
name="a.b" value="1"
name="a.b" value="2 &quot;two&quot;"
