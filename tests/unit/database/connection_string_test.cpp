#include "database/connection_string.h"

#include <gtest/gtest.h>

#include "data/shorthand.h"

namespace dralo::database {

namespace {

using tests::MessageOf;

TEST(ConnectionString, FindsKeysInAnyLetterCase) {
  const ConnectionString text("Provider=SQLite;DATA source=shop.db");
  EXPECT_EQ(text.Find("provider"), "SQLite");
  EXPECT_EQ(text.Find("Data Source"), "shop.db");
  EXPECT_EQ(text.Find("Mode"), std::nullopt);
}

TEST(ConnectionString, IgnoresBlanksAndEmptyParts) {
  const ConnectionString text(" ; Provider =  SQLite ;;\tData Source = my shop.db ; ");
  EXPECT_EQ(text.Find("Provider"), "SQLite");
  EXPECT_EQ(text.Find("Data Source"), "my shop.db");
}

TEST(ConnectionString, UnderstandsQuotedValues) {
  const ConnectionString text(R"(a="x;y ";b='it''s';c="say ""so""";d={x}}y};e= "z" ;f=)");
  EXPECT_EQ(text.Find("a"), "x;y ");
  EXPECT_EQ(text.Find("b"), "it's");
  EXPECT_EQ(text.Find("c"), "say \"so\"");
  EXPECT_EQ(text.Find("d"), "x}y");
  EXPECT_EQ(text.Find("e"), "z");
  EXPECT_EQ(text.Find("f"), "");
}

TEST(ConnectionString, TakesTheLastOfEqualKeys) {
  ConnectionString text("Mode=Read;mode=ReadWrite");
  EXPECT_EQ(text.Find("Mode"), "ReadWrite");
  text.Add("MODE", "Other");
  EXPECT_EQ(text.Find("Mode"), "Other");
  text.Add("Mode", "");
  EXPECT_EQ(text.Find("Mode"), "Other");
}

TEST(ConnectionString, KeepsAnEqualsSignInAValue) {
  EXPECT_EQ(ConnectionString("Password=a=b").Find("Password"), "a=b");
}

TEST(ConnectionString, ShowsItselfWithoutPasswords) {
  const ConnectionString text("Provider=SQLite; PASSWORD = \"a;b\" ;Data Source=x.db;pwd=secret");
  EXPECT_EQ(text.WithoutPassword(), "Provider=SQLite;Data Source=x.db;");
}

TEST(ConnectionString, HasUsualNamesOfKeys) {
  const ConnectionString text =
      ConnectionString("Provider=x;Server=a;DATA SOURCE=b;Initial Catalog=c;user=d;Uid=e;Pwd=f;mode=g")
          .WithUsualKeys("Tables", "Host, Database, User ID, Password, Mode");
  EXPECT_EQ(text.Find("Host"), "b");
  EXPECT_EQ(text.Find("Database"), "c");
  EXPECT_EQ(text.Find("User ID"), "e");
  EXPECT_EQ(text.Find("Password"), "f");
  EXPECT_EQ(text.Find("Mode"), "g");
}

TEST(ConnectionString, RefusesUnknownKeysWithoutNamingThem) {
  const auto message = [](const std::string& text) {
    return MessageOf([&] { ConnectionString(text).WithUsualKeys("Tables", "Host, Password"); });
  };
  EXPECT_EQ(message("Host=a;secret=4711"),
            "The connection string has a key that is unknown for Tables; known are Host, Password");
  EXPECT_EQ(message("Host=a;Mode=x"), message("Host=a;UID=x"));
  EXPECT_EQ(message(std::string("Host=a\0b", 8)), "The connection string has a zero byte");
}

TEST(ConnectionString, OnlyEqualPairsInEqualOrderShareAnIdentity) {
  const auto identity = [](const char* text) { return ConnectionString(text).Identity(); };
  EXPECT_EQ(identity("Host=a;Port=1"), identity(" Host = a ;Port=1;"));
  EXPECT_NE(identity("Host=a;Port=1"), identity("Port=1;Host=a"));
  EXPECT_NE(identity("Host=a;Port=1"), identity("Host='a;Port=1'"));
  EXPECT_NE(identity("Host=a;Port=1"), identity("Host='a;Port=1 1'"));
}

TEST(ConnectionString, RefusesPartsThatAreNoPairsWithoutQuotingThem) {
  EXPECT_EQ(MessageOf([] { ConnectionString("Provider=SQLite;Password=x;secret"); }),
            "The connection string has a part without \"=\"; write key=value;key=value");
  EXPECT_EQ(MessageOf([] { ConnectionString("secret;a=b"); }),
            "The connection string has a part without \"=\"; write key=value;key=value");
  EXPECT_EQ(MessageOf([] { ConnectionString("Password=\"secret"); }),
            "The connection string has a quote that is not closed");
  EXPECT_EQ(MessageOf([] { ConnectionString("Password=\"sec\"ret;a=b"); }),
            "The connection string has text between a closing quote and the next \";\"");
}

}  // namespace

}  // namespace dralo::database
