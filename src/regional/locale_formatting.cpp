#include "regional/locale_formatting.h"

#include "regional/date_recognizer.h"
#include "regional/locale_facts.h"
#include "regional/locale_name.h"
#include "regional/number_recognizer.h"
#include "regional/number_writer.h"
#include "regional/scratch.h"

namespace dralo::regional {
namespace {

using platform::DateTime;
using platform::VariantView;

class LocaleFormatting final : public platform::Formatting {
 public:
  explicit LocaleFormatting(const LocaleFacts& facts)
      : short_date_(facts.short_date),
        long_time_(facts.long_time),
        numbers_(facts.decimal_point),
        date_recognizer_(facts),
        number_recognizer_(facts) {}

  std::string_view Text(const VariantView& value, std::string& scratch) const override;

  std::optional<DateTime> RecognizeDate(std::string_view text) const override {
    return date_recognizer_.Recognize(text);
  }

  std::optional<platform::Decimal> RecognizeNumber(std::string_view text) const override {
    return number_recognizer_.Recognize(text);
  }

 private:
  std::string_view DateTimeText(const DateTime& time, std::string& scratch) const;

  DateTimePattern short_date_;
  DateTimePattern long_time_;
  NumberWriter numbers_;
  DateRecognizer date_recognizer_;
  NumberRecognizer number_recognizer_;
};

std::string_view LocaleFormatting::Text(const VariantView& value, std::string& scratch) const {
  struct Writer {
    const LocaleFormatting& formatting;
    std::string& scratch;

    std::string_view operator()(platform::Null) const { return {}; }
    std::string_view operator()(bool flag) const { return flag ? "True" : "False"; }
    std::string_view operator()(std::int64_t number) const {
      return formatting.numbers_.Write(number, scratch);
    }
    std::string_view operator()(double number) const { return formatting.numbers_.Write(number, scratch); }
    std::string_view operator()(platform::DecimalView number) const {
      return formatting.numbers_.Write(number, scratch);
    }
    std::string_view operator()(const DateTime& time) const { return formatting.DateTimeText(time, scratch); }
    std::string_view operator()(std::string_view text) const { return text; }
    std::string_view operator()(platform::BytesView) const { return {}; }
  };
  return std::visit(Writer{*this, scratch}, value);
}

std::string_view LocaleFormatting::DateTimeText(const DateTime& time, std::string& scratch) const {
  char* start = Room(scratch, short_date_.MaxSize() + 1 + long_time_.MaxSize());
  char* end = start;
  const bool has_date = !time.HasZeroDate();
  const bool has_time = !time.IsMidnight() || !has_date;
  if (has_date) end = short_date_.Write(time, end);
  if (has_date && has_time) *end++ = ' ';
  if (has_time) end = long_time_.Write(time, end);
  return {start, static_cast<std::size_t>(end - start)};
}

}  // namespace

std::unique_ptr<platform::Formatting> MakeFormatting(std::string_view locale) {
  return std::make_unique<LocaleFormatting>(ReadLocaleFacts(ChooseLocale(locale)));
}

}  // namespace dralo::regional
