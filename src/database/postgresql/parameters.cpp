#include "database/postgresql/parameters.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <utility>

#include "database/date_text.h"
#include "database/postgresql/type_oid.h"
#include "dralo/error.h"

namespace dralo::database::postgresql {

namespace {

constexpr int kAsText = 0;
constexpr int kAsBytes = 1;

struct Bound {
  Oid type = type_oid::kUnknown;
  std::string text = {};
  int format = kAsText;
};

/// Makes of a value what is bound.
struct Binder {
  Bound operator()(platform::Null) const { return {}; }
  Bound operator()(bool flag) const { return {type_oid::kBoolean, flag ? "t" : "f"}; }
  Bound operator()(std::int64_t number) const {
    const bool is_short = std::in_range<std::int32_t>(number);
    return {is_short ? type_oid::kInteger : type_oid::kBigInt, std::to_string(number)};
  }
  Bound operator()(double number) const {
    char digits[32];
    return {type_oid::kDouble, {digits, std::to_chars(digits, digits + sizeof digits, number).ptr}};
  }
  Bound operator()(const platform::Decimal& decimal) const { return {type_oid::kNumeric, decimal.text}; }
  /// PostgreSQL would round digits below the microseconds, perhaps to another day.
  Bound operator()(platform::DateTime time) const {
    time.nanosecond = time.nanosecond / 1000 * 1000;
    if (time.HasZeroDate()) return {type_oid::kTime, TimeText(time)};
    return {type_oid::kTimestamp, StoredText(time, TimeParts::kDateAndTime)};
  }
  Bound operator()(const std::string& text) const {
    if (text.find('\0') != text.npos) {
      throw platform::Error("The text has a zero byte, which PostgreSQL does not take");
    }
    return {type_oid::kUnknown, text};
  }
  Bound operator()(const platform::Bytes& bytes) const {
    return {type_oid::kBytes, std::string(bytes.begin(), bytes.end()), kAsBytes};
  }
};

}  // namespace

Parameters::Parameters(std::span<const platform::Variant> values) {
  for (const platform::Variant& value : values) Add(value);
}

void Parameters::Add(const platform::Variant& value) {
  Bound bound = std::visit(Binder{}, value);
  types_.push_back(bound.type);
  lengths_.push_back(static_cast<int>(bound.text.size()));
  formats_.push_back(bound.format);
  nulls_.push_back(IsNull(platform::View(value)));
  texts_.push_back(std::move(bound.text));
}

void Parameters::AddNumber(std::optional<std::int64_t> number) {
  Add(number ? platform::Variant(*number) : platform::Variant());
  types_.back() = type_oid::kBigInt;
}

std::vector<const char*> Parameters::Values() const {
  std::vector<const char*> values;
  values.reserve(texts_.size());
  for (std::size_t i = 0; i < texts_.size(); ++i) values.push_back(nulls_[i] ? nullptr : texts_[i].c_str());
  return values;
}

}  // namespace dralo::database::postgresql
