#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "database/mariadb/column_type.h"
#include "database/mariadb/link.h"
#include "database/mariadb/row.h"
#include "database/statement_cache.h"

namespace dralo::database::mariadb {

/// A statement that is prepared on the server of a link, which must outlive it. A statement that cannot be
/// prepared is sent as a text at every run; its values then come as texts. Every function may throw
/// platform::Error with the page's text as its source.
class Statement {
 public:
  /// Prepares `sql`, which stands for the `text` of a page.
  Statement(Link& link, std::string_view text, Form form, std::string sql);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  const std::string& Text() const { return text_; }
  Form GetForm() const { return form_; }

  /// False when the link has connected again since; then the statement cannot be used.
  bool IsOfThisConnection() const { return generation_ == link_.Generation(); }

  /// Without those of the limit; a number that no page gives when the text hides the limit by a comment.
  std::size_t ParameterCount() const { return parameter_count_ - (form_ == Form::kLimited ? 2 : 0); }

  /// The columns that it yields; for a procedure, once it has run.
  const Description& Describe() const { return description_; }

  /// Runs it. Then the rows of the first result that has columns can be fetched.
  void Execute(MYSQL_BIND* parameters);

  /// Whether the server may still be sending rows; it sends none any more when the link has left it.
  bool HasOpenResult() const { return is_open_ && IsOfThisConnection(); }

  /// The rows are put into `row`, which must live until the end of the result.
  void Bind(Row& row);

  /// False at the end; then the server is ready for the next statement.
  bool Fetch(Row& row);

  /// Skips the rows that were not fetched, and everything after them.
  void Finish();

  std::int64_t RowsAffected() const { return rows_affected_; }

  /// The number that the server gave to the row inserted last.
  std::int64_t LastIdentity() const { return last_identity_; }

  /// It comes from the cache, and describes its tables as they were when it last ran.
  bool WasKept() const { return was_kept_; }
  void NoteKept() { was_kept_ = true; }

  /// For a plain statement: no limit can be added to it.
  void RefuseLimit() { refuses_limit_ = true; }
  bool RefusesLimit() const { return refuses_limit_; }

 private:
  struct Closer {
    void operator()(MYSQL_STMT* statement) const noexcept { Library::Get().mysql_stmt_close(statement); }
  };
  struct ResultCloser {
    void operator()(MYSQL_RES* result) const noexcept { Library::Get().mysql_free_result(result); }
  };

  void Prepare();
  void ExecutePrepared(MYSQL_BIND* parameters);
  void ExecuteText();
  void FindResultWithColumns();
  void DescribeResult(const MYSQL_FIELD* fields, unsigned count);
  bool IsDescribed(const MYSQL_FIELD* fields, unsigned count) const;
  bool NextResult();
  void FreeResult();
  void RequireConnection() const;
  [[noreturn]] void Throw();

  const Library& library_ = Library::Get();
  Link& link_;
  const int generation_;
  const std::string text_;
  const Form form_;
  const std::string sql_;
  std::unique_ptr<MYSQL_STMT, Closer> handle_;  ///< None for a statement that is sent as a text.
  std::unique_ptr<MYSQL_RES, ResultCloser> texts_;
  std::size_t parameter_count_ = 0;
  Description description_;
  std::vector<std::array<unsigned long, 3>> described_types_;
  bool is_open_ = false;  ///< There may be rows to fetch.
  bool refuses_limit_ = false;
  bool was_kept_ = false;
  std::int64_t rows_affected_ = 0;
  std::int64_t last_identity_ = 0;
};

}  // namespace dralo::database::mariadb
