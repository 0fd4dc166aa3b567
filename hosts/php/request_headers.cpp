#include "hosts/php/request_headers.h"

#include "text/ascii.h"

namespace dralo::php {

std::string VariableOfHeader(std::string_view name) {
  std::string variable = "HTTP_";
  for (const char c : name) variable += c == '-' ? '_' : text::ToUpper(c);
  return variable;
}

bool IsUrlEncodedForm(std::string_view content_type) {
  constexpr std::string_view kUrlEncoded = "application/x-www-form-urlencoded";
  if (!text::StartsWithAscii(content_type, kUrlEncoded)) return false;
  content_type.remove_prefix(kUrlEncoded.size());
  return content_type.empty() || std::string_view(";, ").find(content_type.front()) != std::string_view::npos;
}

}  // namespace dralo::php
