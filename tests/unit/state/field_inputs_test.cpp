#include "state/field_inputs.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "support/fake_page.h"

namespace dralo::tests {

namespace {

/// What was posted for the field when the form has an input of that name.
std::optional<std::string> PostedFor(std::string_view field, std::string input) {
  FakePage page;
  page.form.push_back({std::move(input), "posted"});
  const state::RequestKeys keys(page.GetRequest(), "1");
  const auto posted = state::FieldInputs(keys).Posted(field);
  return posted ? std::optional<std::string>(*posted) : std::nullopt;
}

TEST(FieldInputs, AreFoundInAnyLetterCase) {
  EXPECT_EQ(PostedFor("City", "MORVU1_form_cITY"), "posted");
  EXPECT_EQ(PostedFor("ⱥθήνας", "Morvu1_Form_ȺΘΉΝΑΣ"), "posted");
}

TEST(FieldInputs, AreThoseOfTheWholeName) {
  EXPECT_EQ(PostedFor("City", "Morvu1_Form_Cit"), std::nullopt);
  EXPECT_EQ(PostedFor("City", "Morvu1_Form_Citys"), std::nullopt);
  EXPECT_EQ(PostedFor("City", "Morvu2_Form_City"), std::nullopt);
  EXPECT_EQ(PostedFor("City", "Morvu1"), std::nullopt);
  EXPECT_EQ(PostedFor("", "Morvu1_Form_"), "posted");
  EXPECT_EQ(PostedFor("", "Morvu1_Form"), std::nullopt);
}

}  // namespace

}  // namespace dralo::tests
