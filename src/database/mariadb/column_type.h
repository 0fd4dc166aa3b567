#pragma once

#include <memory>
#include <vector>

#include "database/column.h"
#include "database/mariadb/library.h"

namespace dralo::database::mariadb {

/// How the values of a column are read.
enum class Reading {
  kInteger,
  kUnsigned,  ///< 64 bits without a sign, which may not fit into 64 bits with one: an exact decimal.
  kDouble,
  kSingle,  ///< The number that the server prints, which has fewer digits.
  kDecimal,
  kBoolean,
  kDateTime,
  kTime,  ///< Values that are no time of day are texts.
  kText,
  kBytes,
};

struct Reader {
  Reading reading = Reading::kText;
  unsigned digits = 0;  ///< Of a time: the digits of its fraction of a second.
};

/// What is known about the columns of a statement that was prepared or run.
struct Description {
  std::shared_ptr<const Columns> columns = std::make_shared<const Columns>();
  std::vector<Reader> readers = {};
};

/// For a result whose values come as they are stored, or all of them as texts.
Description Describe(const MYSQL_FIELD* fields, unsigned count, bool are_texts);

}  // namespace dralo::database::mariadb
