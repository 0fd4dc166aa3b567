#include "database/postgresql/placeholders.h"

#include <gtest/gtest.h>

namespace dralo::database::postgresql {

namespace {

std::string Numbered(std::string_view statement) { return NumberParameters(statement).text; }

TEST(Placeholders, AreNumberedInTheirOrder) {
  const NumberedStatement numbered = NumberParameters("SELECT ? WHERE a=? AND b IN (?,?)");
  EXPECT_EQ(numbered.text, "SELECT $1 WHERE a=$2 AND b IN ($3,$4)");
  EXPECT_EQ(numbered.parameters, 4);
  EXPECT_EQ(NumberParameters("SELECT 1").parameters, 0);
  EXPECT_EQ(NumberParameters("").text, "");
}

TEST(Placeholders, StandBesideOperators) {
  EXPECT_EQ(Numbered("name LIKE ?||'%' AND a>?-1 AND b::int=?::int AND c[1:?]"),
            "name LIKE $1||'%' AND a>$2-1 AND b::int=$3::int AND c[1:$4]");
}

TEST(Placeholders, AreNotTheOperatorsThatAreDoubled) {
  EXPECT_EQ(Numbered("a ?? 'k' AND a ??| b AND a ??& ? AND @??"), "a ? 'k' AND a ?| b AND a ?& $1 AND @?");
}

TEST(Placeholders, AreNotInQuotes) {
  EXPECT_EQ(Numbered(R"('?' ?)"), R"('?' $1)");
  EXPECT_EQ(Numbered(R"('it''s ?' ?)"), R"('it''s ?' $1)");
  EXPECT_EQ(Numbered(R"('back\' ?)"), R"('back\' $1)");
  EXPECT_EQ(Numbered(R"("q?" ? "a""?")"), R"("q?" $1 "a""?")");
  EXPECT_EQ(Numbered(R"('??' "??")"), R"('??' "??")");
}

TEST(Placeholders, AreNotInQuotesWithEscapes) {
  EXPECT_EQ(Numbered(R"(E'it\'s ?' ?)"), R"(E'it\'s ?' $1)");
  EXPECT_EQ(Numbered(R"(e'\\' ? '?')"), R"(e'\\' $1 '?')");
  EXPECT_EQ(Numbered(R"(U&'\' ?)"), R"(U&'\' $1)");
  EXPECT_EQ(Numbered(R"(type'\' ?)"), R"(type'\' $1)");
}

TEST(Placeholders, AreNotInDollarQuotes) {
  EXPECT_EQ(Numbered("$$ ? ' $$ ?"), "$$ ? ' $$ $1");
  EXPECT_EQ(Numbered("$a1$ ? $$ ? $a$ $a1$ ?"), "$a1$ ? $$ ? $a$ $a1$ $1");
  EXPECT_EQ(Numbered("a$1b$ ? a$1b$"), "a$1b$ $1 a$1b$") << "a name";
  EXPECT_EQ(Numbered("$1 ? $2"), "$1 $1 $2") << "no tag";
}

TEST(Placeholders, AreNotInComments) {
  EXPECT_EQ(Numbered("? -- why?\n?"), "$1 -- why?\n$2");
  EXPECT_EQ(Numbered("/* a /* ? */ ? */ ?"), "/* a /* ? */ ? */ $1");
  EXPECT_EQ(Numbered("/*/ ? */ ?"), "/*/ ? */ $1");
  EXPECT_EQ(Numbered("1 - ? / ? * ?"), "1 - $1 / $2 * $3");
}

TEST(Placeholders, LeaveWhatIsNotClosedAlone) {
  for (const char* text : {"'?", "\"?", "E'\\", "$$?", "/* ?", "/* /* ? */", "--?", "E'?\\'"}) {
    EXPECT_EQ(Numbered(text), text);
  }
}

}  // namespace

}  // namespace dralo::database::postgresql
