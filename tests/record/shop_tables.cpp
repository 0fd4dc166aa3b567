#include "record/shop_tables.h"

#include <array>

namespace dralo::record {
namespace {

using enum FieldKind;
using Names = std::string_view;

constexpr std::array kCustomerFields = {
    ShopField{"ID", kKey},         ShopField{"Company", kText},    ShopField{"City", kText},
    ShopField{"Country", kCode},   ShopField{"Credit", kFraction}, ShopField{"Price", kFraction},
    ShopField{"Ratio", kFraction}, ShopField{"Stars", kWhole},     ShopField{"Big", kWhole},
    ShopField{"Active", kFlag},    ShopField{"Since", kDate},      ShopField{"Seen", kDate},
    ShopField{"Wakes", kTime},     ShopField{"Note", kMemo},       ShopField{"Token", kCode},
};
constexpr std::array kLineFields = {
    ShopField{"Order", kWhole}, ShopField{"Line No", kWhole},           ShopField{"Item", kText},
    ShopField{"Qty", kWhole},   ShopField{"Unit \"Price\"", kFraction}, ShopField{"Paid", kFlag},
};
constexpr std::array kPlainLineFields = {
    ShopField{"OrderNo", kWhole}, ShopField{"LineNo", kWhole}, ShopField{"Item", kText},
    ShopField{"Qty", kWhole},     ShopField{"Paid", kFlag},    ShopField{"Due", kDate},
};
constexpr std::array kNoteFields = {ShopField{"ID", kKey}, ShopField{"Name", kText}, ShopField{"Day", kDate}};
constexpr std::array kCodeFields = {ShopField{"Code", kCode}, ShopField{"Name", kText},
                                    ShopField{"Day", kDate}, ShopField{"Flag", kFlag}};
constexpr std::array kDayFields = {ShopField{"Day", kDate}, ShopField{"Word", kText},
                                   ShopField{"Works", kFlag}};
constexpr std::array kAmountFields = {ShopField{"Amount", kFraction}, ShopField{"Since", kDate}};
constexpr std::array kMarkFields = {ShopField{"Flag", kFlag}, ShopField{"At", kDate},
                                    ShopField{"Hour", kTime}, ShopField{"Ratio", kFraction},
                                    ShopField{"Word", kText}};
constexpr std::array kLooseFields = {ShopField{"a", kText}, ShopField{"b", kWhole}, ShopField{"c", kText}};

constexpr std::array kCustomerKeys = {Names("1"), Names("2"),  Names("3"),
                                      Names("7"), Names("21"), Names("45")};
constexpr std::array kLineKeys = {Names("1,1"), Names("1,2"), Names("2,1"), Names("7,3")};
constexpr std::array kNoteKeys = {Names("1")};
constexpr std::array kCodeKeys = {Names("A1"),   Names("b'2"), Names("C,3"),
                                  Names("D\"4"), Names("Å&5"), Names("")};
constexpr std::array kDayKeys = {Names("2024-02-29"), Names("2024-05-03"), Names("5/3/2024")};
constexpr std::array kAmountKeys = {Names("12.5"), Names("-0.25"), Names("1000"), Names("12,5")};
constexpr std::array kMarkKeys = {Names("1,2024-05-03 14:07:09,07:08:00,0.5"),
                                  Names("0,2024-02-29,00:00:00,-1"), Names("0,2024-02-29 00:00:00,0:00,-1"),
                                  Names("1,2024-05-03T14:07:09,07:08:00,5e-1")};
constexpr std::array kLooseKeys = {Names("1"), Names("x"), Names("2.5")};

constexpr auto kTables = std::to_array<ShopTable>({
    {"Customers",
     "SELECT ID, Company, City, Country, Credit, Price, Ratio, Stars, Big, Active, Since, Seen, Wakes, Note, "
     "Token, Photo FROM Customers",
     "SELECT ID, Company, Credit, Active, Since, Note FROM Customers", "ID", "autoincrement", kCustomerKeys,
     kCustomerFields},
    {"\"Order Lines\"", R"(SELECT "Order", "Line No", Item, Qty, "Unit ""Price""", Paid FROM "Order Lines")",
     R"(SELECT "Order", "Line No", Item FROM "Order Lines")", "\"Order\",\"Line No\"", "", kLineKeys,
     kLineFields},
    {"Lines", "SELECT OrderNo, LineNo, Item, Qty, Paid, Due FROM Lines",
     "SELECT OrderNo, LineNo, Item FROM Lines", "OrderNo,LineNo", "SELECT 99,SELECT max(LineNo)+1 FROM Lines",
     kLineKeys, kPlainLineFields},
    {"Notes", "SELECT ID, Name, Day FROM Notes", "SELECT ID, Name FROM Notes", "ID",
     "SELECT coalesce(max(ID),0)+1 FROM Notes", kNoteKeys, kNoteFields},
    {"Empties", "SELECT ID, Name, Day FROM Empties", "SELECT Name, ID FROM Empties", "ID", "autoincrement",
     kNoteKeys, kNoteFields},
    {"Codes", "SELECT Code, Name, Day, Flag FROM Codes", "SELECT Name, Code FROM Codes", "Code", "",
     kCodeKeys, kCodeFields},
    {"Loose", "SELECT a, b, c FROM Loose", "SELECT a, c FROM Loose", "a", "", kLooseKeys, kLooseFields},
    {"Marks", "SELECT Flag, At, Hour, Ratio, Word FROM Marks",
     "SELECT Word, Flag, At, Hour, Ratio FROM Marks", "Flag,At,Hour,Ratio", ",,SELECT '01:02:03',", kMarkKeys,
     kMarkFields},
    {"Days", "SELECT Day, Word, Works FROM Days", "SELECT Day, Works FROM Days", "Day", "", kDayKeys,
     kDayFields},
    {"Amounts", "SELECT Amount, Since FROM Amounts", "SELECT Since, Amount FROM Amounts", "Amount",
     "SELECT 7.5", kAmountKeys, kAmountFields},
});

constexpr std::string_view kStatements = R"(
CREATE TABLE Customers(ID INTEGER PRIMARY KEY, Company VARCHAR(40) NOT NULL, City NVARCHAR(20), Country CHAR(2),
  Credit DECIMAL(10,2), Price MONEY, Ratio DOUBLE, Stars SMALLINT, Big BIGINT, Active BOOLEAN NOT NULL,
  Since DATE, Seen DATETIME, Wakes TIME, Note MEMO, Token UUID, Photo BLOB);
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<45)
INSERT INTO Customers SELECT i,
  CASE i%6 WHEN 0 THEN 'Müller & Söhne' WHEN 1 THEN 'O''Neill "Ltd"' WHEN 2 THEN '<b>Bold</b> Inc'
    WHEN 3 THEN 'SMITH BROTHERS' WHEN 4 THEN 'a' ELSE 'The Turf Fire Bookshop' END || ' ' || i,
  CASE i%5 WHEN 0 THEN NULL WHEN 1 THEN 'Oslo' WHEN 2 THEN 'Ærø' WHEN 3 THEN 'oslo' ELSE '' END,
  CASE i%3 WHEN 0 THEN 'NO' WHEN 1 THEN 'DE' END,
  CASE i%4 WHEN 0 THEN NULL WHEN 1 THEN i*1234.5 WHEN 2 THEN -0.125*i ELSE 0 END,
  CASE i%7 WHEN 0 THEN NULL ELSE round(i*99.99,2) END, CASE i%5 WHEN 0 THEN NULL ELSE i/7.0-3 END,
  CASE i%8 WHEN 0 THEN NULL ELSE i%5-1 END, CASE i%9 WHEN 0 THEN 9223372036854775807 WHEN 1 THEN NULL ELSE i*10000000000 END,
  i%3=0, CASE i%6 WHEN 0 THEN NULL ELSE printf('%04d-%02d-%02d', 1995+i, 1+i%12, 1+i%28) END,
  CASE i%7 WHEN 0 THEN NULL WHEN 1 THEN '1899-12-30 07:08:09' WHEN 2 THEN 'never' ELSE printf('2024-02-%02d %02d:%02d:%02d', 1+i%29, i%24, i, i) END,
  CASE i%4 WHEN 0 THEN NULL ELSE printf('%02d:%02d:00', i%24, i) END,
  CASE i%5 WHEN 0 THEN NULL WHEN 1 THEN '' WHEN 2 THEN 'line one' || char(13,10) || 'line <two> & "three"'
    ELSE 'A long text about number ' || i || ' with many words, ü and 漢字, which a limit may cut off.' END,
  CASE i%10 WHEN 0 THEN NULL ELSE printf('00000000-0000-0000-0000-%012d', i) END,
  CASE i%11 WHEN 0 THEN x'00FF1022' END FROM n;
CREATE TABLE "Order Lines"("Order" INTEGER NOT NULL, "Line No" INTEGER NOT NULL, Item VARCHAR(30), Qty INTEGER,
  "Unit ""Price""" MONEY, Paid BOOLEAN, PRIMARY KEY("Order","Line No"));
WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<20)
INSERT INTO "Order Lines" SELECT 1+i/3, 1+i%3, CASE i%4 WHEN 0 THEN NULL ELSE 'Item ' || i%3 END, i-4, round(i*0.05,2),
  CASE i%3 WHEN 0 THEN NULL WHEN 1 THEN 0 ELSE 1 END FROM n;
CREATE TABLE Lines(OrderNo INTEGER NOT NULL, LineNo INTEGER NOT NULL, Item VARCHAR(30) NOT NULL, Qty INTEGER,
  Paid BOOLEAN, Due DATE NOT NULL, PRIMARY KEY(OrderNo,LineNo));
INSERT INTO Lines SELECT "Order","Line No",coalesce(Item,'-'),Qty,Paid,printf('2020-01-%02d',1+abs(Qty)) FROM "Order Lines";
CREATE TABLE Notes(ID INTEGER PRIMARY KEY, Name VARCHAR(10) NOT NULL, Day DATE);
INSERT INTO Notes VALUES(1,'only','2000-02-29');
CREATE TABLE Empties(ID INTEGER PRIMARY KEY, Name VARCHAR(10), Day DATE);
CREATE TABLE Codes(Code VARCHAR(10) UNIQUE, Name VARCHAR(20), Day DATE, Flag BOOL);
INSERT INTO Codes VALUES('A1','first','2001-01-01',1),('b''2','quote',NULL,0),('C,3','comma','2003-03-03',NULL),
  ('D"4','double','1600-12-31',1),('Å&5','letters',NULL,NULL),('','empty',NULL,1),(NULL,'null','2024-12-31',0);
CREATE TABLE Days(Day DATE NOT NULL PRIMARY KEY, Word VARCHAR(20), Works BOOLEAN);
INSERT INTO Days VALUES('2024-02-29','leap',1),('2024-05-03',NULL,0),('1999-12-31','last',NULL);
CREATE TABLE Amounts(Amount DECIMAL(8,2) PRIMARY KEY, Since DATETIME);
INSERT INTO Amounts VALUES(12.5,'2024-05-03 14:07:09'),(-0.25,NULL),(1000,'2001-01-01');
CREATE TABLE Marks(Flag BOOLEAN NOT NULL, At DATETIME NOT NULL, Hour TIME NOT NULL, Ratio DOUBLE NOT NULL,
  Word CLOB, PRIMARY KEY(Flag,At,Hour,Ratio));
INSERT INTO Marks VALUES(1,'2024-05-03 14:07:09','07:08:00',0.5,'&amp; &lt;x&#65; </textarea>'),
  (0,'2024-02-29','00:00:00',-1,char(10) || 'begins with a line end'),(0,'2001-01-01 01:01:01','23:59:59',0.25,NULL);
CREATE TABLE Loose(a,b,c);
INSERT INTO Loose VALUES(1,2,'three'),('x',NULL,4.5),(2.5,'y',x'41'),(NULL,NULL,NULL),(1,7,'again');
)";

}  // namespace

std::span<const ShopTable> Tables() { return kTables; }

std::string ShopTables() { return std::string(kStatements); }

}  // namespace dralo::record
