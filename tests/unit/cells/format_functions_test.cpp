#include "cells/format_functions.h"

#include <gtest/gtest.h>

#include "support/records.h"
#include "support/rendering.h"

namespace dralo::tests {
namespace {

TEST(FormatFunctions, GiveTheStandardTextAndSayOnceThatTheyAreNotAvailable) {
  Rendering rendering;
  const Records records("CREATE TABLE T (A INTEGER, B TEXT); INSERT INTO T VALUES (5, NULL)");

  const std::string cells = rendering.Text([&](util::HtmlWriter& out, shell::Render& render) {
    out.Write(util::Verbatim{cells::GetFormatCellString(render, records[0], 1)});
    out.Write(util::Verbatim{cells::GetFormatCellString(render, records[1], 2)});
  });

  EXPECT_EQ(cells, "5&nbsp;");
  EXPECT_EQ(rendering.settings.ErrorMessage,
            "Format functions are not available in this version in GetFormatCellString<br>");
}

}  // namespace
}  // namespace dralo::tests
