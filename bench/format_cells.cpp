/// Measures single cells with a format function, from the field's value to the text.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <vector>

#include "cells/format_functions.h"
#include "dralo/page.h"
#include "hosts/cpp/environment.h"
#include "settings/column_settings.h"

namespace {

using dralo::platform::TypeCode;
using dralo::platform::VariantView;

struct Sample {
  TypeCode type;
  std::vector<VariantView> values;
};

/// A column with the values of a sample, one after the other.
class Values final : public dralo::platform::Field {
 public:
  explicit Values(const Sample& sample) : sample_(sample) {}

  std::string_view Name() const override { return "V"; }
  TypeCode Type() const override { return sample_.type; }
  int Attributes() const override { return 0; }
  std::int64_t DefinedSize() const override { return 0; }
  std::int64_t ActualSize() override { return 8; }
  VariantView Value() override { return sample_.values[next_++ % sample_.values.size()]; }
  void SetValue(const dralo::platform::Variant&) override {}

 private:
  const Sample& sample_;
  std::size_t next_ = 0;
};

void FormatCells(benchmark::State& state, std::string_view format, const Sample& sample) {
  Values values(sample);
  dralo::host::Environment environment("en-US");
  dralo::Page page("/cells", "");
  dralo::settings::Settings settings;
  dralo::settings::SetGridFormatCellFunction(settings, 1, format);
  const dralo::state::RequestKeys keys(page.GetRequest(), settings.Tag);
  dralo::html::HtmlWriter out;
  dralo::state::Render render{
      .settings = settings, .environment = environment, .keys = keys, .out = out, .script_name = ""};
  dralo::cells::FormatFunction function(render, 1, dralo::cells::ValueForm::kPlain);
  for (auto _ : state) {
    benchmark::DoNotOptimize(function.CellText(render, values));
  }
  if (!render.outcome.errors.empty()) state.SkipWithError("a cell could not be formatted");
}

const Sample kWhole{TypeCode::kInteger, {std::int64_t{1234567}, std::int64_t{-89}, std::int64_t{0}}};
const Sample kDouble{TypeCode::kDouble, {1234.5678, -0.25, 98765432.1}};
const Sample kDecimal(TypeCode::kDecimal,
                      {dralo::platform::DecimalView{"1234567.895"}, dralo::platform::DecimalView{"-3.10"}});
const Sample kDate{TypeCode::kDate,
                   {dralo::platform::DateTime{2024, 5, 3, 14, 7, 9, 0},
                    dralo::platform::DateTime{1999, 12, 31, 0, 0, 0, 0}}};
const Sample kLatin{TypeCode::kVarWideChar, {"The quick brown fox jumps over the lazy dog", "OSLO"}};
const Sample kGreek{TypeCode::kVarWideChar, {"Ξεσκεπάζω την ψυχοφθόρα βδελυγμία", "ΑΘΉΝΑ"}};

BENCHMARK_CAPTURE(FormatCells, number_of_integer, "FORMATNUMBER,2", kWhole);
BENCHMARK_CAPTURE(FormatCells, number_of_double, "FORMATNUMBER,2", kDouble);
BENCHMARK_CAPTURE(FormatCells, number_of_decimal, "FORMATNUMBER,2", kDecimal);
BENCHMARK_CAPTURE(FormatCells, currency_of_decimal, "FORMATCURRENCY", kDecimal);
BENCHMARK_CAPTURE(FormatCells, general_date, "FORMATDATETIME", kDate);
BENCHMARK_CAPTURE(FormatCells, long_date, "FORMATDATETIME,1", kDate);
BENCHMARK_CAPTURE(FormatCells, short_time, "FORMATDATETIME,4", kDate);
BENCHMARK_CAPTURE(FormatCells, date_pattern, "FORMAT,yyyy-mm-dd hh:nn", kDate);
BENCHMARK_CAPTURE(FormatCells, number_pattern, "FORMAT,0.00;(0.00)", kDecimal);
BENCHMARK_CAPTURE(FormatCells, capitals_of_latin, "UCASE", kLatin);
BENCHMARK_CAPTURE(FormatCells, capitals_of_greek, "UCASE", kGreek);

}  // namespace

BENCHMARK_MAIN();
