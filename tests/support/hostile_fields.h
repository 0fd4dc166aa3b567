#pragma once

#include <array>
#include <random>
#include <string>
#include <string_view>

#include "dralo/request.h"

namespace dralo::tests {

/// Request fields that no page of ours would send: every key of the protocol, in any letter case, with texts
/// that are no numbers, that end attributes and tags, or that are no texts at all. The same ones for the same
/// seed. Markup that breaks out of its place shows as a tag or an attribute with "zzz" in its name.
class HostileFields {
 public:
  explicit HostileFields(unsigned seed) : random_(seed) {}

  platform::RequestField Next() {
    if (Below(8) == 0) return {Text(), Text()};
    std::string name(Pick(kPrefixes));
    const std::string_view key = Pick(kKeys);
    const bool is_statement = key == "SQL";
    name += key;
    if (Below(3) == 0) ChangeCase(name);
    return {name, is_statement && Below(3) != 0 ? std::string(Pick(kStatements)) : Text()};
  }

  std::size_t Below(std::size_t limit) { return random_() % limit; }

 private:
  static constexpr std::string_view kPrefixes[] = {"Morvu1",  "Morvu1", "Morvu1", "Morvu1", "Morvu12",
                                                   "Morvu12", "Morvu2", "Morvu",  "Morvu1 "};
  static constexpr std::string_view kKeys[] = {"maxrecords",
                                               "CountRecords",
                                               "CurrRecord",
                                               "CurrRecord",
                                               "SQL",
                                               "FormDisplay",
                                               "FormDisplay",
                                               "OrderByFields",
                                               "OrderByFields",
                                               "OrderByDesc",
                                               "FIRST.x",
                                               "PREV.x",
                                               "NEXT.x",
                                               "LAST.x",
                                               "NEXT.y",
                                               "NEXT",
                                               "BookMark",
                                               "PK",
                                               "FormEdit",
                                               "FormAdd",
                                               "FormView",
                                               "FormInsert",
                                               "FormUpdate",
                                               "FormDelete",
                                               "ToExcel.x",
                                               "_Form_Name",
                                               "_Form_ID",
                                               "_Form_",
                                               ""};
  static constexpr std::string_view kNumbers[] = {"0",
                                                  "1",
                                                  "2",
                                                  "-1",
                                                  "-0",
                                                  "+3",
                                                  "5.5",
                                                  "-2.5",
                                                  "1e5",
                                                  "1e999",
                                                  "0x10",
                                                  "&H10",
                                                  "1,5",
                                                  "21, 1",
                                                  " 7 ",
                                                  "2 1",
                                                  "32767",
                                                  "32768",
                                                  "-32768",
                                                  "-32769",
                                                  "2147483647",
                                                  "2147483648",
                                                  "-2147483648",
                                                  "-2147483649",
                                                  "4294967297",
                                                  "9223372036854775807",
                                                  "9223372036854775808",
                                                  "-9223372036854775808",
                                                  "99999999999999999999999999999999",
                                                  "1.7976931348623157e308",
                                                  "NaN",
                                                  "inf",
                                                  "$5",
                                                  "(5)",
                                                  "5%",
                                                  "five",
                                                  "\xD9\xA3",
                                                  "\xEF\xBC\x95"};
  static constexpr std::string_view kTexts[] = {"",
                                                " ",
                                                "on",
                                                "True",
                                                "False",
                                                "formOneRec",
                                                "FORMONEREC",
                                                "Name",
                                                "1",
                                                "2 DESC",
                                                "Name; DROP TABLE Items",
                                                "\"><zzz>",
                                                "'><zzz>",
                                                "\" onzzz=\"1",
                                                "' onzzz='1",
                                                " zzz=1 ",
                                                "></form><zzz>",
                                                "&quot;><zzz>",
                                                "\\\"><zzz>",
                                                "<!--",
                                                "-->",
                                                "</script>",
                                                "%00",
                                                "%22%3E",
                                                "javascript:zzz",
                                                "{}",
                                                "\r\n\r\n",
                                                "\xC3\xB8",
                                                "\xC3",
                                                "\xFF\xFE",
                                                "\xF0\x9F\x98\x80"};
  static constexpr std::string_view kStatements[] = {"SELECT * FROM Items",
                                                     "SELECT Name FROM Items WHERE ID<0",
                                                     "SELECT 1 UNION SELECT 2",
                                                     "SELECT * FROM Missing",
                                                     "SELECT",
                                                     "SELECT ?",
                                                     "VALUES(1)",
                                                     "BEGIN EXCLUSIVE",
                                                     "ROLLBACK",
                                                     "PRAGMA locking_mode=EXCLUSIVE",
                                                     "SELECT 1; SELECT 2",
                                                     "EXPLAIN SELECT 1",
                                                     "-- nothing",
                                                     "Items"};

  template <std::size_t n>
  std::string_view Pick(const std::string_view (&choices)[n]) {
    return choices[Below(n)];
  }

  std::string Text() {
    switch (Below(16)) {
      case 0:
        return Bytes(Below(40));
      case 1:
        return std::string(Pick(kTexts)) + Bytes(Below(4)) + std::string(Pick(kTexts));
      case 2:
      case 3:
      case 4:
      case 5:
      case 6:
        return std::string(Pick(kTexts));
      default:
        return std::string(Pick(kNumbers));
    }
  }

  std::string Bytes(std::size_t count) {
    std::string bytes;
    while (bytes.size() < count) bytes += static_cast<char>(Below(256));
    return bytes;
  }

  void ChangeCase(std::string& name) {
    for (char& c : name) {
      const bool is_letter = ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z');
      if (is_letter && Below(2) == 0) c = static_cast<char>(c ^ 0x20);
    }
  }

  std::mt19937 random_;
};

}  // namespace dralo::tests
