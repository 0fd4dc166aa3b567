#include <gtest/gtest.h>

#include "security/visited_notes.h"

namespace dralo::security {
namespace {

/// An order that no database ever finds.
constexpr const char* kEndless =
    "Morvu1OrderByFields=(WITH+RECURSIVE+n(N)+AS+(SELECT+1+UNION+ALL+SELECT+N%2B1+FROM+n)+SELECT+max(N)+FROM+"
    "n)";

Answer AskForEndlessOrder(bool is_hardened) {
  VisitedNotes page(is_hardened);
  page.script = [](component::DbView& view) {
    const std::string connection = std::get<std::string>(view.Get("ConnectionString"));
    view.Set("ConnectionString", connection + ";Query Timeout=1");
  };
  return page.Send({.query = kEndless});
}

TEST(StatementTime, OfAnOrderFromTheRequestEndsAPlainPage) {
  const Answer answer = AskForEndlessOrder(false);
  EXPECT_TRUE(answer.Shows("took longer than the Query Timeout of 1 s")) << answer.message;
  EXPECT_FALSE(answer.Shows(">One<"));
}

TEST(StatementTime, OfAnOrderFromTheRequestIsNoneOnAHardenedPage) {
  const Answer answer = AskForEndlessOrder(true);
  EXPECT_EQ(answer.message, "");
  EXPECT_TRUE(answer.Shows(">One<"));
}

}  // namespace
}  // namespace dralo::security
