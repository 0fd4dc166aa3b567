#include <gtest/gtest.h>

#include "security/visited_notes.h"

namespace dralo::security {
namespace {

constexpr const char* kLineBreaks =
    "name%0D%0ASet-Cookie:%20a=%0D%0A%0D%0A%3Cscript%3E&Morvu1Tag=%0D%0A&Search=%E5%98%8A%E5%98%8DSet-Cookie";

/// What a request brings never reaches the headers of a download: its file has one name.
TEST(DownloadHeaders, HoldNothingOfTheRequestInEitherMode) {
  for (const bool is_hardened : {false, true}) {
    VisitedNotes page(is_hardened);
    const Answer usual = page.Send({.query = "Morvu1ToExcel.x=1"});
    const Answer answer = page.Send({.query = std::string("Morvu1ToExcel.x=1&") + kLineBreaks});
    EXPECT_EQ(answer.Header("content-disposition"), "attachment; filename=DraloExcelExport.xls");
    EXPECT_EQ(answer.headers, usual.headers);
  }
}

TEST(RedirectHeaders, HoldNoLineBreaksOfTheRequest) {
  VisitedNotes page(true);
  page.receives_posts = true;
  const Answer answer =
      page.Send({.method = "POST",
                 .query = kLineBreaks,
                 .body = "Morvu1FormUpdate=1&Morvu1PK=1&Morvu1_Form_Title=New&Morvu1_Form_Body=a"});
  EXPECT_EQ(answer.status, 303);
  const std::string address = answer.Header("Location");
  EXPECT_TRUE(address.starts_with("/notes?")) << address;
  EXPECT_EQ(address.find_first_of("\r\n <>\""), address.npos) << address;
  EXPECT_NE(address.find("Set%2DCookie"), address.npos) << "the field travels: " << address;
}

}  // namespace
}  // namespace dralo::security
