#pragma once

#include <string>

#include "database/column.h"
#include "dralo/date_time.h"

namespace dralo::database::mariadb {

/// The text by which a time on 1899-12-30 is written to a column of dates and found there, as this day stands
/// for "no date" elsewhere. Empty for other days and columns.
std::string TextOfZeroDate(const platform::DateTime& time, const Column& column);

}  // namespace dralo::database::mariadb
