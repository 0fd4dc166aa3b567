#include "database/mariadb/zero_date.h"

#include "database/date_text.h"
#include "dralo/type_code.h"

namespace dralo::database::mariadb {

std::string TextOfZeroDate(const platform::DateTime& time, const Column& column) {
  using platform::TypeCode;
  const bool has_date = column.type == TypeCode::kDbDate || column.type == TypeCode::kDbTimestamp;
  return has_date && time.HasZeroDate() ? StoredText(time, column.time_parts) : std::string{};
}

}  // namespace dralo::database::mariadb
