#include "dralo/page_stream.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "dralo/page.h"

namespace dralo {
namespace {

std::unique_ptr<Page> NewPage() { return std::make_unique<Page>("/goods", ""); }

/// All pieces, a "|" behind each.
std::string Taken(PageStream& stream) {
  std::string taken;
  for (std::string_view piece = stream.Next(); !piece.empty(); piece = stream.Next()) {
    taken += piece;
    taken += '|';
  }
  return taken;
}

TEST(PageStream, GivesThePiecesInTheirOrderAndThenNone) {
  PageStream stream(NewPage(), [](Page& page) {
    page.GetResponse().Write("one");
    page.GetResponse().Write("");
    page.GetResponse().Write("two");
  });
  EXPECT_EQ(Taken(stream), "one|two|");
  EXPECT_EQ(stream.Next(), "");
}

TEST(PageStream, HasItsHeadersBehindTheFirstPiece) {
  PageStream stream(NewPage(), [](Page& page) {
    page.GetResponse().SetStatus(421);
    page.GetResponse().SetContentType("text/plain");
    page.GetResponse().Write("no");
  });
  EXPECT_EQ(stream.Next(), "no");
  EXPECT_EQ(stream.Written().Status(), 421);
  EXPECT_EQ(stream.Written().ContentType(), "text/plain");
}

TEST(PageStream, WritesNoMoreThanIsAskedFor) {
  int written = 0;
  {
    PageStream stream(NewPage(), [&](Page& page) {
      for (;; ++written) page.GetResponse().Write("more");
    });
    stream.Next();
    stream.Next();
  }
  EXPECT_EQ(written, 1);
}

TEST(PageStream, WritesNothingWhenNothingIsAskedFor) {
  bool has_begun = false;
  {
    const PageStream stream(NewPage(), [&](Page&) { has_begun = true; });
  }
  EXPECT_FALSE(has_begun);
}

TEST(PageStream, EndsWithAPageThatEnds) {
  PageStream stream(NewPage(), [](Page& page) {
    page.GetResponse().Write("all");
    page.GetResponse().End();
  });
  EXPECT_EQ(Taken(stream), "all|");
}

TEST(PageStream, PassesAFailureOnOnce) {
  PageStream stream(NewPage(), [](Page& page) {
    page.GetResponse().Write("some");
    throw std::runtime_error("broken");
  });
  EXPECT_EQ(stream.Next(), "some");
  EXPECT_THROW(stream.Next(), std::runtime_error);
  EXPECT_EQ(stream.Next(), "");
}

}  // namespace
}  // namespace dralo
