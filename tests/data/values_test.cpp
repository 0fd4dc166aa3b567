#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "data/commands.h"
#include "data/databases.h"

namespace dralo::tests {

namespace {

using platform::Bytes;
using platform::DateTime;
using platform::Null;
using platform::Variant;

/// Values that go into a table and come back as they were.
class Values : public DatabaseContract {
 protected:
  void Create(const std::string& type) {
    connection_->Execute("CREATE TABLE Kept (ID INTEGER NOT NULL PRIMARY KEY, Kept " + type + ")");
  }

  void Write(const Variant& value) {
    Perform(MakeCommand(connection_, "INSERT INTO Kept (ID, Kept) VALUES (?, ?)", {++id_, value}));
  }

  std::string LastKept() {
    return Rows(connection_, "SELECT Kept FROM Kept WHERE ID = " + std::to_string(id_)).front();
  }

  std::string KeptAs(const Variant& value) {
    Write(value);
    return LastKept();
  }

  /// What becomes of a value that is assigned to a field.
  std::string KeptAsEdited(const Variant& value) {
    const auto recordset = Edit(connection_, "SELECT ID, Kept FROM Kept");
    recordset->AddNew();
    FieldOf(*recordset, "ID").SetValue(++id_);
    FieldOf(*recordset, "Kept").SetValue(value);
    recordset->Update();
    return LastKept();
  }

 private:
  std::int64_t id_ = 0;
};
INSTANTIATE_TEST_SUITE_P(Databases, Values, kDatabases, DatabaseName);

constexpr const char* kEmoji = "\xF0\x9F\x8E\xBB";
constexpr const char* kUmlaut = "\xC3\xA4";

/// `size` bytes of characters of one, two and four bytes.
std::string Mixed(std::size_t size) {
  std::string text;
  while (text.size() + 7 <= size) text.append("a").append(kUmlaut).append(kEmoji);
  text.append(size - text.size(), 'z');
  return text;
}

TEST_P(Values, KeepsTextsOfAnyLength) {
  Create(GetParam().long_text.name);
  for (const std::size_t size :
       {1u,    126u,  127u,  128u,  254u,  255u,   256u,   257u,   1023u,  1024u,     4094u,
        4095u, 4096u, 8189u, 8190u, 8191u, 16384u, 32767u, 65535u, 65536u, 1'000'000u}) {
    const std::string text = Mixed(size);
    EXPECT_TRUE(KeptAs(text) == "'" + text + "'") << size;
    EXPECT_TRUE(KeptAsEdited(text) == "'" + text + "'") << size;
  }
}

TEST_P(Values, KeepsLongTextsOfSeveralRecordsApart) {
  Create(GetParam().long_text.name);
  for (const std::size_t size : {100'000u, 3u, 0u, 70'000u}) Write(Mixed(size));
  Write(Null{});
  Write(Mixed(20));

  const auto recordset = Read(connection_, "SELECT Kept, ID FROM Kept ORDER BY ID");
  Lines sizes;
  for (; !recordset->Eof(); recordset->MoveNext()) {
    sizes.push_back(std::to_string(recordset->Fields()[0]->ActualSize()) + " " + ValueOf(*recordset, "ID"));
  }
  EXPECT_EQ(sizes, (Lines{"100000 1", "3 2", "0 3", "70000 4", "0 5", "20 6"}));
}

TEST_P(Values, ReadsAFieldTwice) {
  Create(GetParam().long_text.name);
  const std::string text = Mixed(100'000);
  Write(text);
  const auto recordset = Read(connection_, "SELECT Kept, ID FROM Kept");

  EXPECT_TRUE(ValueOf(*recordset, "Kept") == "'" + text + "'");
  EXPECT_EQ(ValueOf(*recordset, "ID"), "1");
  EXPECT_TRUE(ValueOf(*recordset, "Kept") == "'" + text + "'");
}

TEST_P(Values, CountsCharactersOfFourBytesAsOne) {
  Create(GetParam().text.name);
  std::string text;
  for (int i = 0; i < 20; ++i) text += kEmoji;
  EXPECT_EQ(KeptAs(text), "'" + text + "'");
  EXPECT_EQ(KeptAsEdited(text), "'" + text + "'");
  EXPECT_EQ(Rows(connection_, "SELECT ID FROM Kept WHERE Kept = '" + text + "' ORDER BY ID"),
            (Lines{"1", "2"}));
}

TEST_P(Values, KeepsTextsThatLookLikeSyntax) {
  Create(GetParam().text.name);
  for (const char* text : {"'; DROP TABLE Kept", "\"?\"", "\\", "\\'", "%_{d'x'}", "a\r\nb\tc", "$1 :name @x",
                           " a ", "/* -- #"}) {
    EXPECT_EQ(KeptAs(text), std::string("'") + text + "'");
    EXPECT_EQ(KeptAsEdited(text), std::string("'") + text + "'");
  }
}

TEST_P(Values, TellsAnEmptyTextFromNull) {
  for (const std::string& type : {GetParam().text.name, GetParam().long_text.name}) {
    Create(type);
    EXPECT_EQ(KeptAs(""), "''");
    EXPECT_EQ(KeptAs(Null{}), "null");
    EXPECT_EQ(KeptAsEdited(""), "''");
    EXPECT_EQ(KeptAsEdited(Null{}), "null");
    EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Kept WHERE Kept IS NULL"), Lines{"2"});
    connection_->Execute("DROP TABLE Kept");
  }
}

TEST_P(Values, KeepsAZeroByteInATextOrRefusesIt) {
  Create(GetParam().long_text.name);
  const std::string text("a\0b", 3);
  if (GetParam().takes_zero_bytes) {
    EXPECT_EQ(KeptAs(text), "'" + text + "'");
    EXPECT_EQ(KeptAsEdited(text), "'" + text + "'");
  } else {
    EXPECT_THROW(Write(text), platform::Error);
    EXPECT_THROW(KeptAsEdited(text), platform::Error);
    EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Kept"), Lines{"0"});
  }
}

TEST_P(Values, KeepsNullOfEveryType) {
  const Database& types = GetParam();
  for (const TypeOf* type :
       {&types.text, &types.decimal, &types.small, &types.boolean, &types.date, &types.timestamp,
        &types.number, &types.long_text, &types.bytes, &types.time, &types.big}) {
    Create(type->name);
    EXPECT_EQ(KeptAs(Null{}), "null") << type->name;
    EXPECT_EQ(KeptAsEdited(Null{}), "null") << type->name;
    connection_->Execute("DROP TABLE Kept");
  }
}

TEST_P(Values, KeepsIntegersOf64Bits) {
  Create(GetParam().big.name);
  EXPECT_EQ(FieldOf(*Read(connection_, "SELECT Kept FROM Kept"), "Kept").Type(), GetParam().big.code);
  for (const std::int64_t number :
       {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max(), std::int64_t{-1},
        std::int64_t{4294967296}, std::int64_t{9007199254740993}}) {
    EXPECT_EQ(KeptAs(number), std::to_string(number));
    EXPECT_EQ(KeptAsEdited(std::to_string(number)), std::to_string(number));
  }
}

TEST_P(Values, KeepsEveryDigitOfADecimalOrItsFirstFifteen) {
  Create("DECIMAL(30,10)");
  for (const char* digits : {"12345678901234567890.0123456789", "-99999999999999999999.9999999999",
                             "0.0000000001", "-0.1000000000", "0.0000000000", "7.0000000000"}) {
    for (const std::string& kept : {KeptAs(platform::Decimal{digits}), KeptAsEdited(digits)}) {
      if (GetParam().keeps_decimals) {
        EXPECT_EQ(kept, std::string(digits) + "m");
      } else {
        EXPECT_NEAR(std::stod(kept), std::stod(digits), std::abs(std::stod(digits)) * 1e-14);
      }
    }
  }
}

TEST_P(Values, KeepsDoubles) {
  Create(GetParam().number.name);
  for (const double number : {0.1, -1.0 / 3, 1.5e308, 2.5e-308, 123456789.125, 5e-10, 9007199254740991.0}) {
    EXPECT_EQ(KeptAs(number), Shown(number));
    EXPECT_EQ(KeptAsEdited(number), Shown(number));
  }
}

TEST_P(Values, KeepsBooleans) {
  Create(GetParam().boolean.name);
  EXPECT_EQ(KeptAs(true), "true");
  EXPECT_EQ(KeptAs(false), "false");
  EXPECT_EQ(KeptAsEdited(true), "true");
  EXPECT_EQ(KeptAsEdited("False"), "false");
  EXPECT_EQ(KeptAsEdited(std::int64_t{1}), "true");
}

TEST_P(Values, KeepsDatesOfAllYears) {
  Create(GetParam().date.name);
  for (const DateTime& date : {DateTime{1, 1, 1}, DateTime{1582, 10, 10}, DateTime{1899, 12, 31},
                               DateTime{1970, 1, 1}, DateTime{2024, 2, 29}, DateTime{9999, 12, 31}}) {
    EXPECT_EQ(KeptAs(date), Shown(date));
    EXPECT_EQ(KeptAsEdited(date), Shown(date));
  }
}

TEST_P(Values, KeepsTheFractionOfASecond) {
  Create(GetParam().timestamp.name);
  EXPECT_EQ(KeptAs(DateTime{2024, 3, 1, 10, 20, 30}), "2024-03-01 10:20:30");
  EXPECT_EQ(KeptAs(DateTime{2024, 3, 1, 10, 20, 30, 5'000'000}), "2024-03-01 10:20:30.005000000");
  EXPECT_EQ(KeptAsEdited("2024-03-01T10:20:30.120"), "2024-03-01 10:20:30.120000000");

  const DateTime last{9999, 12, 31, 23, 59, 59, 123'456'000};
  EXPECT_EQ(KeptAs(last), "9999-12-31 23:59:59.123456000");
  EXPECT_EQ(KeptAsEdited(last), "9999-12-31 23:59:59.123456000");
}

TEST_P(Values, FindsARecordByItsTimestamp) {
  Create(GetParam().timestamp.name);
  const DateTime time{2024, 3, 1, 10, 20, 30, 125'000'000};
  Write(time);
  EXPECT_EQ(RowsOf(MakeCommand(connection_, "SELECT ID FROM Kept WHERE Kept = ?", {time})), Lines{"1"});

  const auto recordset = Edit(connection_, "SELECT ID, Kept FROM Kept WHERE ID = 1");
  FieldOf(*recordset, "Kept").SetValue(DateTime{2025, 1, 1});
  recordset->Update();
  EXPECT_EQ(LastKept(), "2025-01-01 00:00:00");
}

TEST_P(Values, KeepsTimesOfDayOnTheZeroDate) {
  Create(GetParam().time.name);
  EXPECT_EQ(FieldOf(*Read(connection_, "SELECT Kept FROM Kept"), "Kept").Type(), GetParam().time.code);
  EXPECT_EQ(KeptAsEdited("14:30:15"), "1899-12-30 14:30:15");
  EXPECT_EQ(KeptAsEdited("00:00"), "1899-12-30 00:00:00");
  EXPECT_EQ(KeptAsEdited(DateTime{2024, 5, 6, 23, 59, 59}), "1899-12-30 23:59:59");
}

TEST_P(Values, KeepsBytesOfAnyNumberAndValue) {
  Create(GetParam().bytes.name);
  for (const std::size_t size : {0u, 1u, 255u, 256u, 257u, 4096u, 8191u, 70'000u, 1'000'000u}) {
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7);
    EXPECT_TRUE(KeptAs(bytes) == Shown(View(Variant{bytes}))) << size;
    EXPECT_TRUE(KeptAsEdited(bytes) == Shown(View(Variant{bytes}))) << size;
  }
}

TEST_P(Values, FindsThatALongTextWasChangedBehindItsBeginning) {
  Create(GetParam().long_text.name);
  const std::string text = Mixed(100'000);
  Write(text);
  const auto recordset = Edit(connection_, "SELECT ID, Kept FROM Kept");
  FieldOf(*recordset, "Kept").SetValue("mine");
  Perform(MakeCommand(Connect(ConnectionString()), "UPDATE Kept SET Kept = ?", {text + "!"}));

  EXPECT_EQ(MessageOf([&] { recordset->Update(); }),
            "Row cannot be located for updating. Some values may have been changed since it was last read.");
  EXPECT_TRUE(LastKept() == "'" + text + "!'");
}

}  // namespace

}  // namespace dralo::tests
