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

namespace dralo::database::sqlite {

/// Whether SQLite was given a record limit behind the text of a statement.
enum class Form { kPlain, kLimited };

/// What is known of the columns of a prepared statement.
struct Description {
  std::shared_ptr<const Columns> columns;
  std::vector<Reader> readers;

  /// Whether no column's type depends on the first value.
  bool has_declared_types = true;

  /// How often SQLite had prepared the statement anew, after changes of the tables, when this was found out.
  int prepared_again = 0;
};

/// A statement that SQLite has prepared, with what was found out about it. Not running unless a cursor uses
/// it.
class Statement {
 public:
  /// Throws platform::Error when SQLite does not accept `text` or it holds more than one statement or none.
  static std::unique_ptr<Statement> Prepare(sqlite3* connection, std::string_view text);

  /// `text` with a limit behind it, or nullptr when that is another statement or none.
  /// Throws platform::Error, as if for `text` alone, when the failure is not one of the text.
  static std::unique_ptr<Statement> PrepareLimited(sqlite3* connection, std::string_view text);

  sqlite3_stmt* Handle() const { return handle_.get(); }

  /// Without the limit.
  const std::string& Text() const { return text_; }

  Form GetForm() const { return form_; }

  /// Without those of the limit.
  int ParameterCount() const;

  /// The parameters of a limited statement: rows to yield at most, -1 for all, and rows to pass over first.
  void BindLimit(std::int64_t rows, std::int64_t offset);

  const Description& Describe() const { return description_; }

  /// Finds out about the columns anew if the tables were changed since.
  void Refresh();

  /// Where the rows can be written to. Throws platform::Error saying why they cannot.
  const BaseTable& Table();

  /// Whether a limited statement of `max_records` (0 for all) costs less than the plain one. SQLite sorts for
  /// a limit by keeping the rows below it in order, which is fast for few and much slower than sorting for
  /// many.
  bool PaysOff(std::int64_t max_records) const;

  /// Of a plain statement: that no limit can be put behind it.
  void RefuseLimit() { refuses_limit_ = true; }
  bool RefusesLimit() const { return refuses_limit_; }

  /// Ends the statement and forgets the parameters.
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
