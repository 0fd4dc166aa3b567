#include "database/text_reading.h"

#include <utility>
#include <variant>

#include "text/iso_date.h"

namespace dralo::database {

using platform::DateTime;
using platform::VariantView;

/// The date is read where it stays: a copy would wait until its parts are written.
VariantView ReadDate(std::string_view text) {
  VariantView value(std::in_place_type<DateTime>);
  if (!text::ParseIsoDateTime(text, *std::get_if<DateTime>(&value))) value = text;
  return value;
}

VariantView ReadTimeOfDay(std::string_view text) {
  const auto time = text::ParseTimeOfDay(text);
  return time ? VariantView(*time) : text;
}

}  // namespace dralo::database
