#pragma once

#include <string_view>

namespace dralo::tests {

/// A name behind "&" as HTML lists it, with its semicolon where that is needed, and what it stands for.
struct NamedCharacter {
  std::string_view name;
  std::string_view character;
};

/// The names that browsers read without a semicolon, the same with one, and some of the others, sorted.
// clang-format off
inline constexpr NamedCharacter kNamedCharacters[] = {
    {"AElig", "\xC3\x86"}, {"AElig;", "\xC3\x86"}, {"AMP", "\x26"}, {"AMP;", "\x26"},
    {"Aacute", "\xC3\x81"}, {"Aacute;", "\xC3\x81"}, {"Acirc", "\xC3\x82"}, {"Acirc;", "\xC3\x82"},
    {"Agrave", "\xC3\x80"}, {"Agrave;", "\xC3\x80"}, {"Aring", "\xC3\x85"}, {"Aring;", "\xC3\x85"},
    {"Atilde", "\xC3\x83"}, {"Atilde;", "\xC3\x83"}, {"Auml", "\xC3\x84"}, {"Auml;", "\xC3\x84"},
    {"COPY", "\xC2\xA9"}, {"COPY;", "\xC2\xA9"}, {"Ccedil", "\xC3\x87"}, {"Ccedil;", "\xC3\x87"},
    {"CounterClockwiseContourIntegral;", "\xE2\x88\xB3"}, {"ETH", "\xC3\x90"}, {"ETH;", "\xC3\x90"},
    {"Eacute", "\xC3\x89"}, {"Eacute;", "\xC3\x89"}, {"Ecirc", "\xC3\x8A"}, {"Ecirc;", "\xC3\x8A"},
    {"Egrave", "\xC3\x88"}, {"Egrave;", "\xC3\x88"}, {"Euml", "\xC3\x8B"}, {"Euml;", "\xC3\x8B"},
    {"GT", "\x3E"}, {"GT;", "\x3E"}, {"Iacute", "\xC3\x8D"}, {"Iacute;", "\xC3\x8D"},
    {"Icirc", "\xC3\x8E"}, {"Icirc;", "\xC3\x8E"}, {"Igrave", "\xC3\x8C"}, {"Igrave;", "\xC3\x8C"},
    {"Iuml", "\xC3\x8F"}, {"Iuml;", "\xC3\x8F"}, {"LT", "\x3C"}, {"LT;", "\x3C"}, {"NewLine;", "\x0A"},
    {"Ntilde", "\xC3\x91"}, {"Ntilde;", "\xC3\x91"}, {"Oacute", "\xC3\x93"}, {"Oacute;", "\xC3\x93"},
    {"Ocirc", "\xC3\x94"}, {"Ocirc;", "\xC3\x94"}, {"Ograve", "\xC3\x92"}, {"Ograve;", "\xC3\x92"},
    {"Oslash", "\xC3\x98"}, {"Oslash;", "\xC3\x98"}, {"Otilde", "\xC3\x95"}, {"Otilde;", "\xC3\x95"},
    {"Ouml", "\xC3\x96"}, {"Ouml;", "\xC3\x96"}, {"QUOT", "\x22"}, {"QUOT;", "\x22"}, {"REG", "\xC2\xAE"},
    {"REG;", "\xC2\xAE"}, {"THORN", "\xC3\x9E"}, {"THORN;", "\xC3\x9E"}, {"Tab;", "\x09"},
    {"Uacute", "\xC3\x9A"}, {"Uacute;", "\xC3\x9A"}, {"Ucirc", "\xC3\x9B"}, {"Ucirc;", "\xC3\x9B"},
    {"Ugrave", "\xC3\x99"}, {"Ugrave;", "\xC3\x99"}, {"Uuml", "\xC3\x9C"}, {"Uuml;", "\xC3\x9C"},
    {"Yacute", "\xC3\x9D"}, {"Yacute;", "\xC3\x9D"}, {"aacute", "\xC3\xA1"}, {"aacute;", "\xC3\xA1"},
    {"acirc", "\xC3\xA2"}, {"acirc;", "\xC3\xA2"}, {"acute", "\xC2\xB4"}, {"acute;", "\xC2\xB4"},
    {"aelig", "\xC3\xA6"}, {"aelig;", "\xC3\xA6"}, {"agrave", "\xC3\xA0"}, {"agrave;", "\xC3\xA0"},
    {"amp", "\x26"}, {"amp;", "\x26"}, {"apos;", "\x27"}, {"aring", "\xC3\xA5"}, {"aring;", "\xC3\xA5"},
    {"atilde", "\xC3\xA3"}, {"atilde;", "\xC3\xA3"}, {"auml", "\xC3\xA4"}, {"auml;", "\xC3\xA4"},
    {"brvbar", "\xC2\xA6"}, {"brvbar;", "\xC2\xA6"}, {"ccedil", "\xC3\xA7"}, {"ccedil;", "\xC3\xA7"},
    {"cedil", "\xC2\xB8"}, {"cedil;", "\xC2\xB8"}, {"cent", "\xC2\xA2"}, {"cent;", "\xC2\xA2"},
    {"copy", "\xC2\xA9"}, {"copy;", "\xC2\xA9"}, {"copysr;", "\xE2\x84\x97"}, {"curren", "\xC2\xA4"},
    {"curren;", "\xC2\xA4"}, {"deg", "\xC2\xB0"}, {"deg;", "\xC2\xB0"}, {"divide", "\xC3\xB7"},
    {"divide;", "\xC3\xB7"}, {"eacute", "\xC3\xA9"}, {"eacute;", "\xC3\xA9"}, {"ecirc", "\xC3\xAA"},
    {"ecirc;", "\xC3\xAA"}, {"egrave", "\xC3\xA8"}, {"egrave;", "\xC3\xA8"}, {"eth", "\xC3\xB0"},
    {"eth;", "\xC3\xB0"}, {"euml", "\xC3\xAB"}, {"euml;", "\xC3\xAB"}, {"euro;", "\xE2\x82\xAC"},
    {"frac12", "\xC2\xBD"}, {"frac12;", "\xC2\xBD"}, {"frac14", "\xC2\xBC"}, {"frac14;", "\xC2\xBC"},
    {"frac34", "\xC2\xBE"}, {"frac34;", "\xC2\xBE"}, {"gt", "\x3E"}, {"gt;", "\x3E"},
    {"hearts;", "\xE2\x99\xA5"}, {"hellip;", "\xE2\x80\xA6"}, {"iacute", "\xC3\xAD"},
    {"iacute;", "\xC3\xAD"}, {"icirc", "\xC3\xAE"}, {"icirc;", "\xC3\xAE"}, {"iexcl", "\xC2\xA1"},
    {"iexcl;", "\xC2\xA1"}, {"igrave", "\xC3\xAC"}, {"igrave;", "\xC3\xAC"}, {"iquest", "\xC2\xBF"},
    {"iquest;", "\xC2\xBF"}, {"iuml", "\xC3\xAF"}, {"iuml;", "\xC3\xAF"}, {"laquo", "\xC2\xAB"},
    {"laquo;", "\xC2\xAB"}, {"lpar;", "\x28"}, {"lt", "\x3C"}, {"lt;", "\x3C"}, {"ltcc;", "\xE2\xAA\xA6"},
    {"macr", "\xC2\xAF"}, {"macr;", "\xC2\xAF"}, {"micro", "\xC2\xB5"}, {"micro;", "\xC2\xB5"},
    {"middot", "\xC2\xB7"}, {"middot;", "\xC2\xB7"}, {"nbsp", "\xC2\xA0"}, {"nbsp;", "\xC2\xA0"},
    {"not", "\xC2\xAC"}, {"not;", "\xC2\xAC"}, {"notin;", "\xE2\x88\x89"}, {"ntilde", "\xC3\xB1"},
    {"ntilde;", "\xC3\xB1"}, {"oacute", "\xC3\xB3"}, {"oacute;", "\xC3\xB3"}, {"ocirc", "\xC3\xB4"},
    {"ocirc;", "\xC3\xB4"}, {"ograve", "\xC3\xB2"}, {"ograve;", "\xC3\xB2"}, {"ordf", "\xC2\xAA"},
    {"ordf;", "\xC2\xAA"}, {"ordm", "\xC2\xBA"}, {"ordm;", "\xC2\xBA"}, {"oslash", "\xC3\xB8"},
    {"oslash;", "\xC3\xB8"}, {"otilde", "\xC3\xB5"}, {"otilde;", "\xC3\xB5"}, {"ouml", "\xC3\xB6"},
    {"ouml;", "\xC3\xB6"}, {"para", "\xC2\xB6"}, {"para;", "\xC2\xB6"}, {"plusmn", "\xC2\xB1"},
    {"plusmn;", "\xC2\xB1"}, {"pound", "\xC2\xA3"}, {"pound;", "\xC2\xA3"}, {"quot", "\x22"},
    {"quot;", "\x22"}, {"raquo", "\xC2\xBB"}, {"raquo;", "\xC2\xBB"}, {"reg", "\xC2\xAE"},
    {"reg;", "\xC2\xAE"}, {"sect", "\xC2\xA7"}, {"sect;", "\xC2\xA7"}, {"shy", "\xC2\xAD"},
    {"shy;", "\xC2\xAD"}, {"sup1", "\xC2\xB9"}, {"sup1;", "\xC2\xB9"}, {"sup2", "\xC2\xB2"},
    {"sup2;", "\xC2\xB2"}, {"sup3", "\xC2\xB3"}, {"sup3;", "\xC2\xB3"}, {"szlig", "\xC3\x9F"},
    {"szlig;", "\xC3\x9F"}, {"there4;", "\xE2\x88\xB4"}, {"thorn", "\xC3\xBE"}, {"thorn;", "\xC3\xBE"},
    {"times", "\xC3\x97"}, {"times;", "\xC3\x97"}, {"uacute", "\xC3\xBA"}, {"uacute;", "\xC3\xBA"},
    {"ucirc", "\xC3\xBB"}, {"ucirc;", "\xC3\xBB"}, {"ugrave", "\xC3\xB9"}, {"ugrave;", "\xC3\xB9"},
    {"uml", "\xC2\xA8"}, {"uml;", "\xC2\xA8"}, {"uuml", "\xC3\xBC"}, {"uuml;", "\xC3\xBC"},
    {"yacute", "\xC3\xBD"}, {"yacute;", "\xC3\xBD"}, {"yen", "\xC2\xA5"}, {"yen;", "\xC2\xA5"},
    {"yuml", "\xC3\xBF"}, {"yuml;", "\xC3\xBF"},
};
// clang-format on

}  // namespace dralo::tests
