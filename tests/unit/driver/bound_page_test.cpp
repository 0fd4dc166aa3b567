#include <gtest/gtest.h>

#include <memory>

#include "component/db_view.h"
#include "dralo/error.h"
#include "support/items.h"

namespace dralo::driver {
namespace {

/// A page whose host goes on when the page has ended.
class PageOfAHostThatGoesOn : public tests::FakePage {
 public:
  bool has_ended = false;

  bool HasEnded() const override { return has_ended; }
};

/// A view of three items that keeps its page.
struct BoundPage : ::testing::Test {
  tests::ItemsPage items{3};
  std::shared_ptr<PageOfAHostThatGoesOn> page = std::make_shared<PageOfAHostThatGoesOn>();
  component::DbView view{tests::TestEnvironment()};

  BoundPage() {
    view.OnStartPage(page);
    view.Set("ADORecordset", items.OpenRecordset("SELECT * FROM Items"));
  }
};

TEST_F(BoundPage, IsKeptUntilPageEnd) {
  const std::weak_ptr<PageOfAHostThatGoesOn> kept = page;
  page.reset();
  view.WriteHtmlTable();
  ASSERT_FALSE(kept.expired());
  EXPECT_EQ(tests::ItemsShown(kept.lock()->body), tests::Range(1, 3));
  view.OnEndPage();
  EXPECT_TRUE(kept.expired());
}

TEST_F(BoundPage, GoesWithItsView) {
  auto other = std::make_shared<PageOfAHostThatGoesOn>();
  const std::weak_ptr<PageOfAHostThatGoesOn> kept = other;
  auto short_lived = std::make_unique<component::DbView>(tests::TestEnvironment());
  short_lived->OnStartPage(std::move(other));
  EXPECT_FALSE(kept.expired());
  short_lived.reset();
  EXPECT_TRUE(kept.expired());
}

TEST_F(BoundPage, ThatHasEndedTakesNothingMore) {
  page->has_ended = true;
  view.WriteHtmlTable();
  view.ReceivePost();
  EXPECT_TRUE(page->calls.empty());
  EXPECT_EQ(view.GetSettings().ToRow, 0);
}

TEST_F(BoundPage, CannotBeReplacedWhileTheViewWrites) {
  const auto other = std::make_shared<PageOfAHostThatGoesOn>();
  page->on_write = [&] { EXPECT_THROW(view.OnStartPage(other), platform::Error); };
  view.WriteHtmlTable();
  EXPECT_EQ(tests::ItemsShown(page->body), tests::Range(1, 3));
}

TEST_F(BoundPage, IsAnsweredWhenTheViewHasRun) {
  EXPECT_FALSE(view.HasAnswered());
  view.ReceivePost();
  EXPECT_TRUE(view.HasAnswered());
  view.OnEndPage();
  EXPECT_FALSE(view.HasAnswered());
}

}  // namespace
}  // namespace dralo::driver
