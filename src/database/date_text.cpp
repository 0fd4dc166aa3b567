#include "database/date_text.h"

#include "text/iso_date.h"

namespace dralo::database {

std::string DateText(const platform::DateTime& time) {
  std::string text;
  text::PutDate(time, text);
  return text;
}

std::string TimeText(const platform::DateTime& time) {
  std::string text;
  text::PutTimeOfDay(time, text);
  return text;
}

std::string PlainText(const platform::DateTime& time) {
  if (time.HasZeroDate()) return TimeText(time);
  std::string text;
  text::PutDateTime(time, text);
  return text;
}

std::string StoredText(const platform::DateTime& time, TimeParts parts) {
  switch (parts) {
    case TimeParts::kDate:
      return DateText(time);
    case TimeParts::kTime:
      return TimeText(time);
    default:
      return DateText(time) + ' ' + TimeText(time);
  }
}

}  // namespace dralo::database
