#pragma once

#include <string>
#include <string_view>

namespace dralo::database::postgresql {

struct NumberedStatement {
  std::string text;
  int parameters = 0;
};

/// The statement with "$1", "$2", ... for its "?", each with a number of its own. "??" stands for an operator
/// "?". A "?" in quotes of any kind and in comments is left alone.
NumberedStatement NumberParameters(std::string_view statement);

}  // namespace dralo::database::postgresql
