#pragma once

#include <string>
#include <string_view>

#include "dralo/variant.h"

namespace dralo::database::postgresql {

/// Reads the text that the server sends for a value. What is not of the expected kind, such as the date
/// "infinity", stays a text. Text stays where it is; money and bytes are converted into `scratch`.
using Reader = platform::VariantView (*)(std::string_view text, std::string& scratch);

platform::VariantView ReadInteger(std::string_view text, std::string& scratch);
platform::VariantView ReadReal(std::string_view text, std::string& scratch);
platform::VariantView ReadBoolean(std::string_view text, std::string& scratch);
platform::VariantView ReadNumeric(std::string_view text, std::string& scratch);
platform::VariantView ReadAmount(std::string_view text, std::string& scratch);
platform::VariantView ReadDay(std::string_view text, std::string& scratch);

/// Ignores the offset of a time zone, as in "10:20:30+02".
platform::VariantView ReadZonedDay(std::string_view text, std::string& scratch);

platform::VariantView ReadTime(std::string_view text, std::string& scratch);
platform::VariantView ReadText(std::string_view text, std::string& scratch);
platform::VariantView ReadBytes(std::string_view text, std::string& scratch);

}  // namespace dralo::database::postgresql
