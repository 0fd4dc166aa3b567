#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "cells/format_functions.h"
#include "cells/value_form.h"
#include "dralo/type_code.h"
#include "fuzz/fuzz_input.h"
#include "hosts/cpp/environment.h"
#include "settings/column_settings.h"
#include "support/fake_records.h"
#include "support/rendering.h"
#include "text/decimal.h"
#include "text/iso_date.h"

namespace dralo::fuzz {
namespace {

using platform::TypeCode;
using platform::VariantView;

host::Environment& Environment(std::size_t locale) {
  constexpr std::array kLocales = {"en-US", "de-DE", "nb-NO", "fa-IR"};
  static std::array<std::unique_ptr<host::Environment>, kLocales.size()> made;
  if (made[locale] == nullptr) made[locale] = std::make_unique<host::Environment>(kLocales[locale]);
  return *made[locale];
}

/// A column whose value the text spells; a text that spells none is itself.
struct Column {
  std::string_view text;
  TypeCode type = TypeCode::kVarWideChar;
  VariantView value = text;

  void Take(std::size_t kind) {
    switch (kind) {
      case 1:
        if (const auto number = text::ParseNumber<std::int64_t>(text)) Set(TypeCode::kBigInt, *number);
        return;
      case 2:
        if (const auto number = text::ParseNumber<double>(text)) Set(TypeCode::kDouble, *number);
        return;
      case 3:
        if (const auto date = text::ParseIsoDateTime(text)) Set(TypeCode::kDate, *date);
        return;
      case 4:
        if (text::IsPlainDecimal(text)) Set(TypeCode::kNumeric, platform::DecimalView{text});
        return;
      case 5:
        return Set(TypeCode::kBoolean, text == "1");
      default:
        return;
    }
  }

 private:
  void Set(TypeCode code, VariantView read) {
    type = code;
    value = read;
  }
};

void TryCell(std::size_t locale, const Column& column, std::string_view format, bool is_hardened) {
  tests::Rendering rendering;
  rendering.environment = &Environment(locale);
  rendering.settings.Hardened = is_hardened;
  settings::SetGridFormatCellFunction(rendering.settings, 1, format);
  tests::FakeField field("V", column.type, [&] { return column.value; });
  rendering.Text([&](html::HtmlWriter&, state::Render& render) {
    const auto form = is_hardened ? cells::ValueForm::kEscaped : cells::ValueForm::kPlain;
    cells::FormatFunction function(render, 1, form);
    for (int row = 0; row < 2; ++row) {
      const std::string_view text = function.CellText(render, field);
      Require(!text.empty(), "a cell is never empty");
      Require(!is_hardened || text.find_first_of("<>\"'") == text.npos,
              "what a format function makes is text");
    }
  });
}

}  // namespace

/// A digit for the locale, one for the type of the column; the value; the format.
void Try(std::string_view input) {
  Parts parts(input);
  const std::size_t locale = parts.Choose(4);
  const std::size_t kind = parts.Choose(6);
  Column column{.text = parts.Next()};
  column.Take(kind);
  const std::string_view format = parts.Next();
  TryCell(locale, column, format, false);
  TryCell(locale, column, format, true);
}

}  // namespace dralo::fuzz
