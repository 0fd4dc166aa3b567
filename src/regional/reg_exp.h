#pragma once

#include <memory>

#include "platform/regexp.h"

namespace dralo::regional {

/// A regular expression in the manner of ECMAScript, for text in UTF-8; bytes that are no UTF-8 never match
/// and stay as they are. Not for use by two threads at once.
///
/// - "." matches no line break (CR or LF); "^" and "$" match at the ends of the text only, unless the
///   expression is multi-line. Classes such as "\w" and "\d" are ASCII, letters without case are Unicode's.
/// - In the replacement, "$1" to "$99" stand for groups (two digits when there is such a group, else one),
///   "$&" for the whole match and "$$" for "$"; a group that took no part is empty. Any other "$" stands for
///   itself, as does the number of a group that the expression does not have.
/// - After an empty match the search goes on one character further.
/// - Replace() throws platform::Error when the search takes more steps, memory or time (about one second)
///   than a text in a table is worth, and when nothing was compiled. A failed Compile() leaves what was
///   compiled before.
std::unique_ptr<platform::RegExp> MakeRegExp();

}  // namespace dralo::regional
