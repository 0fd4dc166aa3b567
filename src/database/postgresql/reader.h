#pragma once

#include <string>
#include <string_view>

#include "dralo/variant.h"

namespace dralo::database::postgresql {

/// How the texts that the server sends for the values of a column are read; decided once per statement.
enum class Reading { kInteger, kDouble, kBoolean, kDecimal, kMoney, kDate, kZonedDate, kTime, kText, kBytes };

/// The value that `text` spells; the text itself when it is not of the expected kind, such as the date
/// "infinity". Text stays where it is; money and bytes are converted into `scratch`.
platform::VariantView Read(Reading reading, std::string_view text, std::string& scratch);

}  // namespace dralo::database::postgresql
