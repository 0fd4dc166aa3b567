#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <type_traits>

#include "state/render.h"
#include "support/view_page.h"

namespace dralo::tests {
namespace {

static_assert(std::is_const_v<std::remove_reference_t<decltype(state::Render::settings)>>,
              "nothing that renders may change what the page has set");

/// How a host ends a page in the middle of it.
struct EndOfPage {};

struct Commit : testing::Test {
  ViewPage shop{ViewPage::ItemsTable(45)};

  Commit() { shop.view.Set("sql", std::string("SELECT * FROM Items")); }
  component::PropertyValue Get(std::string_view name) const { return shop.view.Get(name); }
};

TEST_F(Commit, MakesWhatWasAskedAndFoundVisible) {
  shop.Ask("maxrecords", "10");
  shop.Ask("OrderByFields", "2");
  shop.Ask("OrderByDesc", "True");
  shop.Ask("CurrRecord", "41");
  shop.Render();
  EXPECT_EQ(Get("RecordsPerPage"), component::PropertyValue(std::int64_t{10}));
  EXPECT_EQ(Get("OrderByFields"), component::PropertyValue(std::string("2")));
  EXPECT_EQ(Get("OrderByDesc"), component::PropertyValue(true));
  EXPECT_EQ(Get("RecordCount"), component::PropertyValue(std::int64_t{45}));
  EXPECT_EQ(Get("FromRow"), component::PropertyValue(std::int64_t{41}));
  EXPECT_EQ(Get("ToRow"), component::PropertyValue(std::int64_t{45}));
}

TEST_F(Commit, HappensAlsoWhenTheHostEndsThePage) {
  shop.page.on_write = [] { throw EndOfPage(); };
  EXPECT_THROW(shop.view.WriteHtmlTable(), EndOfPage);
  EXPECT_EQ(Get("RecordCount"), component::PropertyValue(std::int64_t{45}));
  EXPECT_EQ(Get("ToRow"), component::PropertyValue(std::int64_t{20}));
}

TEST_F(Commit, IsWhereTheNextRenderingStartsFrom) {
  shop.Ask("OrderByFields", "2");
  shop.Ask("maxrecords", "10");
  const std::string first = shop.Render();
  shop.page.query.clear();
  EXPECT_EQ(shop.Render(), first);
}

TEST_F(Commit, AddsToTheMessagesOfThePage) {
  shop.view.MutableSettings().ErrorMessage = "Before. ";
  shop.view.Set("sql", std::string("SELECT * FROM Nowhere"));
  shop.Render();
  EXPECT_TRUE(shop.ErrorMessage().starts_with("Before. ")) << shop.ErrorMessage();
  EXPECT_NE(shop.ErrorMessage(), "Before. ");
}

}  // namespace
}  // namespace dralo::tests
