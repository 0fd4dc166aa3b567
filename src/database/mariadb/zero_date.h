#pragma once

#include <string>

#include "database/column.h"
#include "dralo/date_time.h"

namespace dralo::database::mariadb {

/// The text with which a time on 1899-12-30, the day that stands for "no date", is written to a column of
/// dates and found there. Empty for other days and columns.
std::string TextOfZeroDate(const platform::DateTime& time, const Column& column);

}  // namespace dralo::database::mariadb
