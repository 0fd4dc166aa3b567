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

CellFunction Unknown(const std::string& name) {
  return [start = "[Unknown function : " + name + "] "](FormatInput& input, std::string& to) {
    return std::string_view(
        to.assign(start).append(GetStdDbFieldString(input.GetRender(), input.GetField())));
  };
}

CellFunction MakeFunction(platform::Environment& environment, std::string_view text,
                          std::string_view delimiter) {
  const FormatArguments arguments(environment.Regional(), text, delimiter);
  if (arguments.Name() == "REGEXPREPLACE") return RegExpReplace(environment, text, delimiter);
  for (const NamedFunction& function : kFunctions) {
    if (function.name == arguments.Name()) return function.make(arguments);
  }
  return Unknown(arguments.Name());
}

}  // namespace

FormatFunction::FormatFunction(state::Render& render, int column) {
  try {
    function_ = MakeFunction(render.environment,
                             settings::GetFormatCellStringRaw(render.settings, column, render.Errors()),
                             render.settings.GridFreeFormatCellColumnDelimiter);
  } catch (const std::exception& error) {
    failure_ = error.what();  // Told by every cell that has a value.
  }
}

std::string_view FormatFunction::CellText(state::Render& render, platform::Field& field) {
  FormatInput input(render, field);
  if (input.IsBlank()) return kEmptyCell;
  try {
    if (!function_) throw platform::Error(failure_);
    const std::string_view text = function_(input, text_);
    return text.empty() ? kEmptyCell : text;
  } catch (const std::exception& error) {
    render.Errors().AddFormattingFailure(error.what());
    return kEmptyCell;
  }
}

}  // namespace dralo::cells
