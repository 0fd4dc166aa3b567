#include "views/current_record.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

#include "dralo/error.h"
#include "dralo/variant.h"

namespace dralo::views {
namespace {

/// A text reuses the memory of the text before it, because many records are copied one after the other.
void Copy(const platform::VariantView& value, platform::Variant& copy) {
  const auto* text = std::get_if<std::string_view>(&value);
  auto* text_before = std::get_if<std::string>(&copy);
  if (text != nullptr && text_before != nullptr) {
    text_before->assign(*text);
  } else {
    copy = platform::Own(value);
  }
}

}  // namespace

void KeepCurrentRecord(state::Render& render, platform::Recordset& recordset) {
  const auto fields = recordset.Fields();
  render.outcome.record.resize(fields.size());
  for (std::size_t at = 0; at < fields.size(); ++at) {
    platform::Variant& copy = render.outcome.record[at];
    try {
      Copy(fields[at]->Value(), copy);
    } catch (const platform::Error&) {
      copy = platform::Null();
    }
  }
}

}  // namespace dralo::views
