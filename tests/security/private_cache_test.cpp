#include <gtest/gtest.h>

#include "security/visited_notes.h"

namespace dralo::security {
namespace {

constexpr const char* kFormOfOne = "Morvu1FormDisplay=formOneRec&Morvu1PK=1";

TEST(PrivateCache, MayKeepTheFormOfAPlainPage) {
  EXPECT_EQ(VisitedNotes(false).Send({.query = kFormOfOne}).Header("Cache-Control"), "");
}

TEST(PrivateCache, MayNotKeepTheFormOfAHardenedPage) {
  for (const char* form : {kFormOfOne, "Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1FormEdit=1",
                           "Morvu1FormDisplay=formOneRec&Morvu1FormAdd=1"}) {
    EXPECT_EQ(VisitedNotes(true).Send({.query = form}).Header("Cache-Control"), "no-store") << form;
  }
}

TEST(PrivateCache, MayKeepTheGrid) { EXPECT_EQ(VisitedNotes(true).Send({}).Header("Cache-Control"), ""); }

}  // namespace
}  // namespace dralo::security
