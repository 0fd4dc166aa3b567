#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <type_traits>

#include "state/render.h"
#include "support/items.h"

namespace dralo::tests {
namespace {

static_assert(std::is_const_v<std::remove_reference_t<decltype(state::Render::settings)>>,
              "nothing that renders may change what the page has set");

/// How a host ends a page in the middle of it.
struct EndOfPage {};

struct Commit : testing::Test, ItemsPage {
  Commit() : ItemsPage(45) {}
  component::PropertyValue Get(std::string_view name) const { return view.Get(name); }
};

TEST_F(Commit, MakesWhatWasAskedAndFoundVisible) {
  Ask("maxrecords", "10");
  Ask("OrderByFields", "2");
  Ask("OrderByDesc", "True");
  Ask("CurrRecord", "41");
  Render();
  EXPECT_EQ(Get("RecordsPerPage"), component::PropertyValue(std::int64_t{10}));
  EXPECT_EQ(Get("OrderByFields"), component::PropertyValue(std::string("2")));
  EXPECT_EQ(Get("OrderByDesc"), component::PropertyValue(true));
  EXPECT_EQ(Get("RecordCount"), component::PropertyValue(std::int64_t{45}));
  EXPECT_EQ(Get("FromRow"), component::PropertyValue(std::int64_t{41}));
  EXPECT_EQ(Get("ToRow"), component::PropertyValue(std::int64_t{45}));
}

TEST_F(Commit, HappensAlsoWhenTheHostEndsThePage) {
  page.on_write = [] { throw EndOfPage(); };
  EXPECT_THROW(view.WriteHtmlTable(), EndOfPage);
  EXPECT_EQ(Get("RecordCount"), component::PropertyValue(std::int64_t{45}));
  EXPECT_EQ(Get("ToRow"), component::PropertyValue(std::int64_t{20}));
}

TEST_F(Commit, IsWhereTheNextRenderingStartsFrom) {
  Ask("OrderByFields", "2");
  Ask("maxrecords", "10");
  const std::string first = Render();
  page.query.clear();
  EXPECT_EQ(Render(), first);
}

TEST_F(Commit, AddsToTheMessagesOfThePage) {
  view.MutableSettings().ErrorMessage = "Before. ";
  Set("sql", "SELECT * FROM Nowhere");
  Render();
  EXPECT_TRUE(ErrorMessage().starts_with("Before. ")) << ErrorMessage();
  EXPECT_NE(ErrorMessage(), "Before. ");
}

}  // namespace
}  // namespace dralo::tests
