#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "hosts/cpp/url_encoded.h"

namespace dralo::fuzz {
namespace {

using Fields = std::vector<platform::RequestField>;

void AppendEncoded(std::string& to, std::string_view text) {
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    to.append({'%', "0123456789abcdef"[byte / 16], "0123456789ABCDEF"[byte % 16]});
  }
}

std::string Encoded(const Fields& fields) {
  std::string text;
  for (const auto& [name, value] : fields) {
    AppendEncoded(text, name);
    text += '=';
    AppendEncoded(text, value);
    text += '&';
  }
  return text;
}

bool AreEqual(const Fields& left, const Fields& right) {
  return std::ranges::equal(
      left, right, [](const auto& a, const auto& b) { return a.name == b.name && a.value == b.value; });
}

}  // namespace

void Try(std::string_view input) {
  const Fields fields = host::ParseUrlEncoded(input);
  Require(std::ranges::none_of(fields, [](const auto& field) { return field.name.empty(); }),
          "every field has a name");
  Require(AreEqual(host::ParseUrlEncoded(Encoded(fields)), fields),
          "fields encoded byte for byte are decoded as they were");
}

}  // namespace dralo::fuzz
