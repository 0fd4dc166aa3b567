#include "cells/date_functions.h"

#include <limits>
#include <memory>

#include "cells/text_pattern.h"
#include "dralo/error.h"

namespace dralo::cells {

using platform::FormatPattern;
using platform::NamedDate;

CellFunction FormatDateTime(const FormatArguments& arguments) {
  const auto form = static_cast<NamedDate>(arguments.NumberOr(1, 0, 0, 4));
  return [form](FormatInput& input, std::string& to) {
    return input.Regional().DateText(input.Date(), form, to);
  };
}

CellFunction DateAdd(const FormatArguments& arguments) {
  if (arguments.Count() != 2) return WrongCount("DateAdd");
  using Limits = std::numeric_limits<std::int32_t>;
  const std::int32_t number = arguments.Number(2, Limits::min(), Limits::max());
  return [interval = arguments.Text(1), number](FormatInput& input, std::string& to) {
    return input.Regional().Text(input.Regional().DateAdd(interval, number, input.Date()), to);
  };
}

CellFunction DatePart(const FormatArguments& arguments) {
  if (arguments.Count() < 1 || arguments.Count() > 3) return WrongCount("DatePart");
  return [interval = arguments.Text(1), weeks = arguments.Weeks(2)](FormatInput& input, std::string& to) {
    const std::int64_t part = input.Regional().DatePart(interval, input.Date(), weeks);
    return input.Regional().Text(part, to);
  };
}

CellFunction Format(const FormatArguments& arguments) {
  if (arguments.Count() < 1 || arguments.Count() > 3) {
    throw platform::Error("FORMAT takes a pattern, and perhaps the first day of the week and the first week");
  }
  const std::shared_ptr<FormatPattern> pattern =
      arguments.Regional().MakePattern(arguments.Text(1), arguments.Weeks(2));
  if (pattern != nullptr) {
    return [pattern](FormatInput& input, std::string& to) { return pattern->Write(input.Value(), to); };
  }
  return [text_pattern = TextPattern(arguments.Text(1))](FormatInput& input, std::string& to) {
    text_pattern.Write(input.Text(), to);
    return std::string_view(to);
  };
}

}  // namespace dralo::cells
