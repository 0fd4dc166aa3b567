#include "cells/format_functions.h"

#include <array>
#include <exception>

#include "cells/date_functions.h"
#include "cells/number_functions.h"
#include "cells/regexp_replace.h"
#include "cells/standard_text.h"
#include "cells/text_functions.h"
#include "dralo/error.h"
#include "settings/column_settings.h"
#include "text/blanks.h"

namespace dralo::cells {
namespace {

constexpr std::string_view kEmptyCell = "&nbsp;";

struct NamedFunction {
  std::string_view name;
  CellFunction (*make)(const FormatArguments& arguments);
};

template <platform::NumberKind kKind>
CellFunction FormatKind(const FormatArguments& arguments) {
  return FormatNumber(arguments, kKind);
}

constexpr auto kFunctions = std::to_array<NamedFunction>({
    {"FORMATCURRENCY", FormatKind<platform::NumberKind::kCurrency>},
    {"FORMATNUMBER", FormatKind<platform::NumberKind::kNumber>},
    {"FORMATPERCENT", FormatKind<platform::NumberKind::kPercent>},
    {"FORMATDATETIME", FormatDateTime},
    {"FORMAT", Format},
    {"DATEADD", DateAdd},
    {"DATEPART", DatePart},
    {"REPLACE", Replace},
    {"LEFT", Left},
    {"RIGHT", Right},
    {"MID", Mid},
    {"UCASE", UpperCase},
    {"LCASE", LowerCase},
    {"INITCAPS", InitCaps},
    {"INITCAPSALL", InitCapsAll},
    {"LEN", Length},
    {"ROUND", Round},
    {"ABS", Abs},
});

/// Empty when no function has that name.
CellFunction MakeFunction(platform::Environment& environment, const FormatArguments& arguments,
                          std::string_view text, std::string_view delimiter) {
  if (arguments.Name() == "REGEXPREPLACE") return RegExpReplace(environment, text, delimiter);
  for (const NamedFunction& function : kFunctions) {
    if (function.name == arguments.Name()) return function.make(arguments);
  }
  return {};
}

}  // namespace

FormatFunction::FormatFunction(state::Render& render, int column, ValueForm form) : form_(form) {
  try {
    const std::string_view text = settings::GetFormatCellStringRaw(render.settings, column, render.Errors());
    const std::string_view delimiter = render.settings.GridFreeFormatCellColumnDelimiter;
    const FormatArguments arguments(render.Regional(), text, delimiter);
    function_ = MakeFunction(render.environment, arguments, text, delimiter);
    if (!function_) unknown_name_ = arguments.Name();
  } catch (const std::exception& error) {
    failure_ = error.what();  // Every cell that has a value reports it.
  }
}

std::string_view FormatFunction::CellText(state::Render& render, platform::Field& field) {
  FormatInput input(render, field);
  if (input.IsBlank()) return kEmptyCell;
  try {
    if (!function_) {
      if (!failure_.empty()) throw platform::Error(failure_);
      return UnknownFunctionText(render, field);
    }
    const std::string_view text = function_(input, text_);
    return text.empty() ? kEmptyCell : InForm(render, text, form_);
  } catch (const std::exception& error) {
    render.Errors().AddFormattingFailure(error.what());
    return kEmptyCell;
  }
}

/// The standard text that follows is already written for HTML.
std::string_view FormatFunction::UnknownFunctionText(state::Render& render, platform::Field& field) {
  const std::string start = "[Unknown function : " + unknown_name_ + "] ";
  text_.assign(InForm(render, start, form_));
  return text_.append(GetStdDbFieldString(render, field, form_));
}

}  // namespace dralo::cells
