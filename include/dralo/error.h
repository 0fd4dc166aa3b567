#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "dralo/export.h"

namespace dralo::platform {

/// A failure that a page author is told about: of a database, of a conversion, of the object factory.
/// The one exception class of all layers. A value: it outlives what has thrown it, and may pass between
/// threads.
class DRALO_EXPORT Error : public std::runtime_error {
 public:
  /// `description` says what failed and what to do, in one sentence without the statement's text.
  explicit Error(const std::string& description, int number = 0, std::string sqlstate = {},
                 std::string source = {})
      : std::runtime_error(description),
        number_(number),
        sqlstate_(std::move(sqlstate)),
        source_(std::move(source)) {}

  /// What the constructor was given; the same as what().
  std::string_view Description() const { return what(); }

  /// The native code, for SQLite its extended result code; 0 when there is none.
  int Number() const { return number_; }

  /// Five characters such as "23000"; empty when the database has none.
  const std::string& SqlState() const { return sqlstate_; }

  /// The statement that failed; empty when the failure has none. Kept apart from the description because
  /// ordinary pages do not show statements.
  const std::string& Source() const { return source_; }

 private:
  int number_;
  std::string sqlstate_;
  std::string source_;
};

}  // namespace dralo::platform

namespace dralo {

using platform::Error;

}  // namespace dralo
