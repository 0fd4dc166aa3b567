#include "hosts/cpp/multipart_form.h"

#include <algorithm>
#include <optional>
#include <string>

#include "text/ascii.h"
#include "text/blanks.h"

namespace dralo::host {
namespace {

constexpr std::string_view kType = "multipart/form-data";

/// Takes the text before `separator`, and the separator, off `rest`; all of `rest` when it has none.
std::string_view TakeUpTo(std::string_view& rest, std::string_view separator) {
  const std::string_view taken = rest.substr(0, rest.find(separator));
  rest.remove_prefix(std::min(taken.size() + separator.size(), rest.size()));
  return taken;
}

/// Takes the rest of a quoted text, behind whose first quote `rest` begins. A backslash lets the next
/// character stand for itself.
std::string TakeQuoted(std::string_view& rest) {
  std::string text;
  while (!rest.empty() && rest.front() != '"') {
    if (rest.front() == '\\' && rest.size() > 1) rest.remove_prefix(1);
    text += rest.front();
    rest.remove_prefix(1);
  }
  return text;
}

/// The parameter of a header's value, as in "form-data; name="x"".
std::optional<std::string> Parameter(std::string_view value, std::string_view name) {
  TakeUpTo(value, ";");
  while (!value.empty()) {
    const std::string_view found = text::TrimBlanks(value.substr(0, value.find_first_of("=;")));
    value.remove_prefix(std::min(value.find_first_of("=;"), value.size()));
    std::string content;
    if (value.starts_with("=\"")) {
      value.remove_prefix(2);
      content = TakeQuoted(value);
      TakeUpTo(value, ";");
    } else {
      const std::string_view plain = TakeUpTo(value, ";");
      content = text::TrimBlanks(plain.substr(std::min<std::size_t>(plain.size(), 1)));
    }
    if (text::EqualAscii(found, name)) return content;
  }
  return std::nullopt;
}

std::string_view WithoutCarriageReturn(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

/// The field that the part holds; nothing when it is a file or has no name.
std::optional<platform::RequestField> FieldOf(std::string_view part) {
  std::optional<std::string> name;
  while (!part.empty()) {
    std::string_view line = WithoutCarriageReturn(TakeUpTo(part, "\n"));
    if (line.empty()) break;
    if (!text::EqualAscii(text::TrimBlanks(TakeUpTo(line, ":")), "Content-Disposition")) continue;
    if (Parameter(line, "filename")) return std::nullopt;
    name = Parameter(line, "name");
  }
  if (!name || name->empty()) return std::nullopt;
  return platform::RequestField{*std::move(name), std::string(WithoutCarriageReturn(part))};
}

}  // namespace

bool IsMultipart(std::string_view content_type) {
  return text::EqualAscii(text::TrimBlanks(content_type.substr(0, content_type.find(';'))), kType);
}

std::vector<platform::RequestField> ParseMultipart(std::string_view content_type, std::string_view body) {
  const std::string boundary = Parameter(content_type, "boundary").value_or("");
  if (boundary.empty()) return {};
  const std::string before_part = "\n--" + boundary;
  std::vector<platform::RequestField> fields;
  if (body.starts_with(std::string_view(before_part).substr(1))) {
    body.remove_prefix(before_part.size() - 1);
  } else {
    TakeUpTo(body, before_part);
  }
  while (!body.empty() && !body.starts_with("--")) {
    TakeUpTo(body, "\n");
    if (body.find(before_part) == body.npos) break;
    if (auto field = FieldOf(TakeUpTo(body, before_part))) fields.push_back(*std::move(field));
  }
  return fields;
}

}  // namespace dralo::host
