#include "record/field_texts.h"

#include <array>

namespace dralo::record {
namespace {

using Name = std::string_view;

struct KindTexts {
  Texts suitable;
  Texts wrong;
};

constexpr std::array kNewKeys = {Name("101"), Name("102"), Name("1"), Name("999")};
constexpr std::array kWrongKeys = {Name("x"), Name(""), Name("-1"), Name("1.5"),
                                   Name("99999999999999999999")};
constexpr std::array kTexts = {Name("Oslo"),     Name("New & \"old\""), Name("O'Neill"), Name("Ærø"),
                               Name("<b>x</b>"), Name(" b "),           Name("12"),      Name("A1")};
constexpr std::array kWrongTexts = {Name(""), Name("\xFF\xFE"),
                                    Name("more than forty characters are too many for it"), Name("a\r\nb"),
                                    Name("\0", 1)};
constexpr std::array kCodes = {Name("NO"), Name("DE"), Name("A1"), Name("ß")};
constexpr std::array kWholes = {Name("1"), Name("42"), Name("-3"), Name("0"), Name("7")};
constexpr std::array kWrongWholes = {Name("x"),     Name("3.5"),   Name("99999999999"), Name(""),
                                     Name("1.000"), Name("1,000"), Name("0x1F"),        Name("40000")};
constexpr std::array kFractions = {Name("12.5"), Name("12,5"), Name("-0.01"),
                                   Name("1000"), Name("1e3"),  Name("0")};
constexpr std::array kWrongFractions = {Name("abc"), Name("1.234,56"), Name("$5"),
                                        Name(""),    Name("12."),      Name("--1")};
constexpr std::array kDates = {Name("2024-02-29"), Name("2024-05-03 14:07:09"), Name("1999-12-31")};
constexpr std::array kWrongDates = {
    Name("yesterday"),  Name("32.13.2024"),          Name(""),          Name("0"), Name("5/3/2024"),
    Name("03.05.2024"), Name("5/3/2024 2:07:09 PM"), Name("2023-02-29")};
constexpr std::array kTimes = {Name("07:08:00"), Name("23:59:59")};
constexpr std::array kWrongTimes = {Name("25:00"), Name("7:08 PM"), Name(""), Name("noon")};
constexpr std::array kFlags = {Name("on"), Name(""), Name("True")};
constexpr std::array kWrongFlags = {Name("False"), Name("0"), Name("maybe")};
constexpr std::array kMemos = {Name("several\r\nlines of <text>"), Name("short"), Name("")};

KindTexts TextsOf(FieldKind kind) {
  switch (kind) {
    case FieldKind::kKey:
      return {kNewKeys, kWrongKeys};
    case FieldKind::kText:
      return {kTexts, kWrongTexts};
    case FieldKind::kCode:
      return {kCodes, kWrongTexts};
    case FieldKind::kWhole:
      return {kWholes, kWrongWholes};
    case FieldKind::kFraction:
      return {kFractions, kWrongFractions};
    case FieldKind::kDate:
      return {kDates, kWrongDates};
    case FieldKind::kTime:
      return {kTimes, kWrongTimes};
    case FieldKind::kFlag:
      return {kFlags, kWrongFlags};
    case FieldKind::kMemo:
      return {kMemos, kWrongTexts};
  }
  return {kTexts, kWrongTexts};
}

}  // namespace

std::string FieldText(FieldKind kind, Chance& chance, std::size_t wrong_percent) {
  const KindTexts texts = TextsOf(kind);
  const bool is_wrong = chance.Percent(wrong_percent);
  return std::string(chance.Pick(is_wrong ? texts.wrong : texts.suitable));
}

}  // namespace dralo::record
