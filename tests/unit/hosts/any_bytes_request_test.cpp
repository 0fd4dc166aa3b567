#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <string_view>

#include "dralo/error.h"
#include "dralo/page.h"
#include "state/hidden_state.h"
#include "state/page_fields.h"
#include "state/request_number.h"
#include "support/rendering.h"

namespace dralo::host {
namespace {

constexpr int kRequests = 100'000;
constexpr std::string_view kInput = "<input type=\"hidden\" name=\"";
constexpr std::ptrdiff_t kQuotesOfAnInput = 6;

/// Query strings and forms made of whole keys, halves of escapes, markup and single bytes; the same ones in
/// every run.
class HostileRequests {
 public:
  std::string Next() {
    using namespace std::string_view_literals;
    // clang-format off
    static constexpr auto kFragments = std::to_array<std::string_view>({
        "&Morvu1CurrRecord=", "&morvu1SQL=+", "&Morvu1PK=", "Morvu1", "Morvu2", "Morvu", "&Morvu2FormUpdate=",
        "formdelete", "CurrRecord", "NEXT.x", "&Search=", "&%22=", "=", "=", "&", "&", "+", "%", "%2", "%22", "%00",
        "%FF", "%26", "%3D", "\"", "\"><b>", "'", "\r\n", "\0"sv, "\xC3", "\xC3\xB8", "\xF0\x9F", "-1", "2.5",
        "99999999999999"});
    // clang-format on
    std::string text;
    for (std::size_t piece = Below(12); piece > 0; --piece) {
      const std::size_t choice = Below(kFragments.size() + 3);
      if (choice < kFragments.size()) {
        text += kFragments[choice];
      } else {
        text += static_cast<char>(Below(256));
      }
    }
    return text;
  }

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }

  std::mt19937_64 random_{20'240'229};
};

std::ptrdiff_t Count(std::string_view text, char c) { return std::ranges::count(text, c); }

std::ptrdiff_t Inputs(std::string_view html) {
  std::ptrdiff_t inputs = 0;
  for (std::size_t at = html.find(kInput); at != html.npos; at = html.find(kInput, at + 1)) ++inputs;
  return inputs;
}

constexpr std::string_view kQueryStringCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789%+&=";

void PutLinkFields(html::HtmlWriter& out, const settings::Settings& settings,
                   const platform::Request& request) {
  state::PutPageQueryFields(out, settings, request, 1);
}

template <class Put>
std::string Written(Put put, const platform::Request& request) {
  html::HtmlWriter out;
  put(out, settings::Settings(), request);
  return out.Take();
}

TEST(AnyBytesInARequest, NeverBreakOutOfAnAttributeOrALink) {
  HostileRequests requests;
  std::ptrdiff_t all_inputs = 0;
  for (int count = 0; count < kRequests; ++count) {
    const std::string query = requests.Next();
    const std::string form = requests.Next();
    const Page page("/p", query, form);

    const std::string inputs = Written(state::PutPageFormFields, page.GetRequest());
    const std::string link = Written(PutLinkFields, page.GetRequest());

    ASSERT_EQ(Count(inputs, '"'), kQuotesOfAnInput * Inputs(inputs)) << query << "\n" << form;
    ASSERT_EQ(link.find_first_not_of(kQueryStringCharacters), link.npos) << query << "\n" << form;
    ASSERT_EQ(Count(link, '&'), Inputs(inputs)) << query << "\n" << form;
    ASSERT_EQ(Count(link, '='), Inputs(inputs)) << query << "\n" << form;
    all_inputs += Inputs(inputs);
  }
  EXPECT_GT(all_inputs, kRequests);
}

TEST(AnyBytesInARequest, GiveAKeyATrimmedValueThatIsANumberOrAnError) {
  HostileRequests requests;
  int numbers = 0;
  int errors = 0;
  for (int count = 0; count < kRequests; ++count) {
    const Page page("/p", requests.Next(), requests.Next());
    const state::RequestKeys keys(page.GetRequest(), "1");
    const std::string_view value = keys.Value(state::key::kCurrRecord);

    ASSERT_FALSE(value.starts_with(' ') || value.ends_with(' ')) << value;
    ASSERT_EQ(keys.Has(state::key::kCurrRecord), !value.empty());
    if (value.empty()) continue;
    try {
      state::ToInt32(tests::AmericanEnvironment().Regional(), value, "CurrRecord");
      ++numbers;
    } catch (const platform::Error&) {
      ++errors;
    }
  }
  EXPECT_GT(numbers, 100);
  EXPECT_GT(errors, 100);
}

TEST(AnyBytesInARequest, StayInsideTheAttributesOfTheHiddenState) {
  HostileRequests requests;
  for (int count = 0; count < kRequests / 10; ++count) {
    tests::Rendering rendering;
    rendering.page.form = {{requests.Next() + "x", requests.Next()}};
    rendering.settings.OrderByFields = requests.Next();

    const std::string html = rendering.Text([&](html::HtmlWriter&, state::Render& render) {
      render.view.form_display = requests.Next();
      state::PutHiddenState(render);
    });

    ASSERT_EQ(Count(html, '"'), kQuotesOfAnInput * Inputs(html)) << html;
  }
}

}  // namespace
}  // namespace dralo::host
