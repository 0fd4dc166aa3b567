#include "html/template_places.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "dralo/error.h"

namespace dralo::tests {
namespace {

using html::TemplateStart;

std::string_view Word(html::PlaceKind kind) {
  switch (kind) {
    case html::PlaceKind::kText:
      return "text";
    case html::PlaceKind::kAttribute:
      return "attribute";
    case html::PlaceKind::kAddress:
      return "address";
    case html::PlaceKind::kRelativeAddress:
      return "own-address";
    case html::PlaceKind::kAddressPart:
      return "part";
    case html::PlaceKind::kRelativeAddressPart:
      return "own-part";
    case html::PlaceKind::kScriptString:
      return "string";
    case html::PlaceKind::kScriptValue:
      return "value";
    case html::PlaceKind::kStyle:
      return "style";
    case html::PlaceKind::kNothing:
      return "nothing";
  }
  return "?";
}

/// The places of a template, in which "@" stands for a value: their words with "!" behind those without
/// quotes and "!!" where the value is the whole; or the first words of the message.
std::string Places(std::string_view text, TemplateStart start) {
  std::vector<std::string_view> literals;
  for (std::size_t at = text.find('@'); at != text.npos; at = text.find('@')) {
    literals.push_back(text.substr(0, at));
    text.remove_prefix(at + 1);
  }
  literals.push_back(text);
  std::string words;
  try {
    for (const html::ValuePlace& place : html::FindPlaces(literals, start)) {
      if (!words.empty()) words += ' ';
      words += Word(place.kind);
      if (place.is_unquoted) words += place.is_whole_value ? "!!" : "!";
    }
  } catch (const platform::Error& error) {
    return std::string(error.Description()).substr(0, 15);
  }
  return words;
}

struct PlaceCase {
  std::string_view text;
  std::string_view places;
};

constexpr std::string_view kUnclear = "A template has ";
constexpr std::string_view kEndsInside = "A template ends";

constexpr PlaceCase kTexts[] = {
    {"", ""},
    {"@", "text"},
    {"@@ and @", "text text text"},
    {"<b>@</b>", "text"},
    {"a < b @", "text"},
    {"</b>@", "text"},
    {"<br/>@", "text"},
    {"<b title='>'>@", "text"},
    {"<b title=\"'>@\">", "attribute"},
    {"<b title='\"@'>", "attribute"},
    {"<b title = '@' lang=\"@\">@", "attribute attribute text"},
    {"<b title=@>@", "attribute!! text"},
    {"<b title=@ lang=x>", "attribute!!"},
    {"<b title=a@b@>", "attribute! attribute!"},
    {"<b title=@b>", "attribute!"},
    {"<b title=@/>", "attribute!"},
    {"<b title=@@>", kUnclear},
    {"<b title=@\"x\">", kUnclear},
    {"<b @>", "nothing"},
    {"<b a@=x c @=y>", "nothing nothing"},
    {"<b title='x'@>", "nothing"},
    {"<@>", "nothing"},
    {"<@b @c>", "nothing nothing"},
    {"</@b>@", "nothing text"},
    {"<!--@-->@", "nothing text"},
    {"<!--->@", "text"},
    {"<!---->@<!-- a -- > @ --!>@", "text nothing text"},
    {"<!-@>@", "nothing text"},
    {"<!DOCTYPE @>@", "nothing text"},
    {"<?@?>@", "nothing text"},
    {"</ @>@", "nothing text"},
    {"<![CDATA[@]]>", kUnclear},
    {"<textarea><b title='@</textarea>@", "text text"},
    {"<title>@</title>", "text"},
    {"<TEXTAREA>@</TextArea\n>@", "text text"},
    {"<textarea></@</textarea>", kUnclear},
    {"<xmp>@</xmp>@", "nothing text"},
    {"<plaintext>@", kEndsInside},
    {"<svg><title>@</title><text x='@'>@</text></svg>", "text attribute text"},
    {"<svg><script>f('@')</script></svg>", kUnclear},
    {"<svg></svg><style>@</style>", "style"},
    {"<b title='@", kEndsInside},
    {"<b", kEndsInside},
    {"<!-- ", kEndsInside},
    {"<script>", kEndsInside},
};

constexpr PlaceCase kAddresses[] = {
    {"<a href='@'>", "address"},
    {"<a href=' \t@'>", "address"},
    {"<A HREF=@>", "address!!"},
    {"<img src='@' alt='@'>", "address attribute"},
    {"<video poster='@'>", "address"},
    {"<q cite='@'>", "address"},
    {"<a xlink:href='@'>", "address"},
    {"<td background='@'>", "address"},
    {"<a href='?id=@&b=@'>", "part part"},
    {"<a href='@?id=@'>", "address part"},
    {"<a href=?id=@>", "part!"},
    {"<a href='x@'>", "part"},
    {"<a href='/@'>", "part"},
    {"<a href='https://@/'>", "part"},
    {"<a href='mailto:@'>", "part"},
    {"<a href='javascript:f(@)'>", "nothing"},
    {"<a href=' java\nscript:@'>", "nothing"},
    {"<a href='javascript&#58;@'>", "nothing"},
    {"<a href='javascript&#x3A;@'>", "nothing"},
    {"<a href='javascript&colon;@'>", kUnclear},
    {"<a href='&Tab;@'>", kUnclear},
    {"<a href='&@'>", kUnclear},
    {"<a href='data:text/html,@'>", "nothing"},
    {"<a href='@:x'>", kUnclear},
    {"<a href='@&colon;x'>", kUnclear},
    {"<a href='@&#58;x'>", kUnclear},
    {"<a href='java@:x'>", kUnclear},
    {"<a href='@/:x'>", "address"},
    {"<a href='?a&copy=@'>", "part"},
    {"<a href='?a=&eacute;&b=@'>", "part"},
    {"<form action='@'>", "own-address"},
    {"<button formaction='@'>", "own-address"},
    {"<form action='/@'>", "own-part"},
    {"<form action='//@'>", "nothing"},
    {"<form action='https://a.@/'>", "nothing"},
    {"<form action='https:@'>", "nothing"},
    {"<form action='https://a.example/@'>", "own-part"},
    {"<script src='@'></script>", "nothing"},
    {"<iframe src=@></iframe>", "nothing!!"},
    {"<iframe src='?@' title='@'></iframe>", "nothing attribute"},
    {"<meta content='0;url=@'>", "nothing"},
    {"<base href='@'>", "nothing"},
    {"<link href='@'>", "nothing"},
    {"<object data='@'>", "nothing"},
    {"<embed src='@'>", "nothing"},
    {"<iframe srcdoc='@'></iframe>", "nothing"},
    {"<img srcset='@'>", "nothing"},
    {"<a ping='@'>", "nothing"},
    {"<svg><animate to='@'/></svg>", "nothing"},
};

constexpr PlaceCase kScripts[] = {
    {"<b onclick=\"f('@')\">", "string"},
    {"<b onclick='f(\"@\")'>", "string"},
    {"<b ONCLICK=\"f(`@`)\">", "string"},
    {"<b onclick=\"f(@, '@', @)\">", "value string value"},
    {"<b onclick=f('@')>", "string!"},
    {"<b onclick=f(@)>", "value!"},
    {"<b onclick=@>", "value!!"},
    {"<b onclick='f(&quot;@&quot;, @)'>", "string value"},
    {"<b onclick='f(&#39;@&#39;, @)'>", "string value"},
    {"<b onclick='f(&#x27;@&#x27, @)'>", "string value"},
    {"<b onclick='f(&grave;@)'>", kUnclear},
    {"<b onclick='f(\"&@\")'>", kUnclear},
    {"<b onclick='f(\"&q@\")'>", kUnclear},
    {"<b onclick='a && f(\"@\")'>", "string"},
    {"<b onclick=\"f('\\'@')\">", "string"},
    {"<b onclick=\"f('\\@')\">", kUnclear},
    {"<b onclick=\"f('\\\\@')\">", "string"},
    {"<b onclick=\"f('\\\\', @)\">", "value"},
    {"<script>f('@')</script>@", "string text"},
    {"<script>f(@)</script>", "value"},
    {"<script>// '\nf('@')</script>", "string"},
    {"<script>// @\nf(@)</script>", "nothing value"},
    {"<script>/* ' @ **/ f(@)</script>", "nothing value"},
    {"<script>/*/ @ */ f(@)</script>", "nothing value"},
    {"<script>a = /'@[/']/; f(@)</script>", "nothing value"},
    {"<script>a = b / c + '@' / @</script>", "string value"},
    {"<script>return /'/ + '@'</script>", "string"},
    {"<script>a.in / '@' / b</script>", "string"},
    {"<script>f() / '@'</script>", kUnclear},
    {"<script>/@/</script>", kUnclear},
    {"<script>a = /\\@/</script>", kUnclear},
    {"<script>f(`a${ {b: '@'} }@${@}`, @)</script>", "string string value value"},
    {"<script>f(`$@{`)</script>", kUnclear},
    {"<script>f(`\\${@`, @)</script>", "string value"},
    {"<script>f('\n@')</script>", kUnclear},
    {"<script>if (a < b) f('@')</script>", "string"},
    {"<script>a <@ b</script>", kUnclear},
    {"<script>'</scr@ipt>'</script>", kUnclear},
    {"<script>'</script>@", "text"},
    {"<script><!-- @\n</script>", kUnclear},
    {"<script>x\n--> @\n</script>", kUnclear},
    {"<script>\\u0061 = '@'</script>", kUnclear},
    {"<b style='color:@'>", "style"},
    {"<b style=@>", "style!!"},
    {"<style>b {color: @}</style>@", "style text"},
    {"<style><@/style>", kUnclear},
};

constexpr PlaceCase kAttributes[] = {
    {"class='@'", "attribute"},
    {"data-name=\"@\" title=@", "attribute attribute!!"},
    {"title=@ lang='@'", "attribute!! attribute"},
    {"title=a@", "attribute!"},
    {"@", "nothing"},
    {"class", ""},
    {"a=", ""},
    {"onclick=\"f('@')\"", "string"},
    {"style='color:@'", "style"},
    {"href='@'", "address"},
    {"href=@:x ", kUnclear},
    {"href=@:x", kEndsInside},
    {"href=@", "address!!"},
    {"class='@", kEndsInside},
    {"class='@'>@", kEndsInside},
};

void Expect(const PlaceCase& expected, TemplateStart start) {
  EXPECT_EQ(Places(expected.text, start), expected.places) << expected.text;
}

TEST(TemplatePlaces, AreThoseOfTextsAndTags) {
  for (const PlaceCase& expected : kTexts) Expect(expected, TemplateStart::kText);
}

TEST(TemplatePlaces, AreThoseOfAddresses) {
  for (const PlaceCase& expected : kAddresses) Expect(expected, TemplateStart::kText);
}

TEST(TemplatePlaces, AreThoseOfScriptsAndStyles) {
  for (const PlaceCase& expected : kScripts) Expect(expected, TemplateStart::kText);
}

TEST(TemplatePlaces, AreThoseOfAttributesWithoutTheirTag) {
  for (const PlaceCase& expected : kAttributes) Expect(expected, TemplateStart::kAttributes);
}

}  // namespace
}  // namespace dralo::tests
