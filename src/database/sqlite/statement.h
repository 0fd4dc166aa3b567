#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "database/base_table.h"
#include "database/column.h"
#include "database/sqlite/reader.h"
#include "database/statement_cache.h"

namespace dralo::database::sqlite {

/// What is known about the columns of a prepared statement.
struct Description {
  std::shared_ptr<const Columns> columns;
  std::vector<Reader> readers;

  /// Whether no column's type depends on the first value.
  bool has_declared_types = true;

  /// PreparedAgain() at the time of the description.
  int prepared_again = 0;
};

/// A statement that SQLite has prepared, and what is known about it. It runs only while a cursor uses it.
class Statement {
 public:
  /// Throws platform::Error when SQLite does not accept `text`, or when it is not exactly one statement.
  static std::unique_ptr<Statement> Prepare(sqlite3* connection, std::string_view text);

  /// `text` with a limit appended, or nullptr when that makes it another statement or none. Throws
  /// platform::Error, as for `text` alone, when the text is not the reason of the failure.
  static std::unique_ptr<Statement> PrepareLimited(sqlite3* connection, std::string_view text);

  sqlite3_stmt* Handle() const { return handle_.get(); }

  /// Without the limit.
  const std::string& Text() const { return text_; }

  Form GetForm() const { return form_; }

  /// Without those of the limit.
  int ParameterCount() const;

  /// The parameters of a limited statement: the most rows to yield, -1 for all, and the rows to skip before.
  void BindLimit(std::int64_t rows, std::int64_t offset);

  const Description& Describe() const { return description_; }

  /// Describes the columns anew if the tables have changed.
  void Refresh();

  /// The table that the rows can be written to. Throws platform::Error, which says why, when there is none.
  const BaseTable& Table();

  /// Whether a limited statement of `max_records` (0 for all) costs less than the plain one. For a limit
  /// SQLite sorts by keeping the rows below it in order, which is fast for a few rows, and much slower than
  /// an ordinary sort for many.
  bool PaysOff(std::int64_t max_records) const;

  /// For a plain statement: no limit can be appended to it.
  void RefuseLimit() { refuses_limit_ = true; }
  bool RefusesLimit() const { return refuses_limit_; }

  /// Ends the statement and drops the parameters.
  void Reset() noexcept;

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
  };
  using HandlePtr = std::unique_ptr<sqlite3_stmt, Finalizer>;

  Statement(HandlePtr handle, std::string text, Form form);

  HandlePtr handle_;
  std::string text_;
  Form form_;
  bool refuses_limit_ = false;
  Description description_;
  std::optional<BaseTable> table_;
};

}  // namespace dralo::database::sqlite
