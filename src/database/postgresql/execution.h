#pragma once

#include <string>

#include "database/postgresql/link.h"
#include "database/postgresql/parameters.h"
#include "database/postgresql/statement.h"
#include "dralo/error.h"

namespace dralo::database::postgresql {

/// One run of a statement: a trip.
class Execution {
 public:
  enum class Rows {
    kNone,   ///< It is only prepared.
    kAll,    ///< They come as one answer.
    kParts,  ///< They come as the server sends them, for as long as that takes if no functions are called.
  };

  /// What stands before everything else.
  enum class Opening {
    kNone,
    kTransaction,  ///< One begins.
    kSavepoint,    ///< So that a statement that fails does not take the user's transaction with it.
  };

  /// A statement that is run before it in the same trip; when it fails, what comes behind is not run.
  struct Leader {
    Statement& statement;
    const Parameters& parameters;
  };

  struct Answers {
    Result columns;  ///< nullptr when the statement was prepared before.
    Result rows;
  };

  /// Sends it. `parameters` are those of the form too. A leader cannot be where rows come in parts. Throws
  /// platform::Error.
  Execution(Link& link, Statement& statement, const Parameters& parameters, Rows rows, Opening opening,
            const Leader* leader = nullptr);

  /// Of the leader, before everything else. Throws platform::Error when it fails.
  Answers Lead(const Leader& leader);

  /// What the server says of the columns; nullptr when the statement was prepared before.
  Result Description();

  /// All rows, or the number of rows changed. The connection is free then.
  Result All();

  /// Behind the description, before the first Part().
  void Split() { link_.Split(); }

  /// Some rows; nullptr behind the last ones, when the connection is free.
  Result Part();

  /// Whether the server ends it after a time, in which its rows must be read.
  bool IsLimited() const { return link_.Patience().has_value() && !has_no_limit_; }

  /// Throws the failure that `answer` is.
  void Require(const Result& answer) { Require(answer, statement_); }

 private:
  void Order(const Statement& statement, const Parameters& parameters, bool is_run);
  void Require(const Result& answer, const Statement& statement);
  Result ColumnsOf(Statement& statement);
  void Recover();

  Link& link_;
  Statement& statement_;
  const Rows rows_;
  const bool is_guarded_;
  const bool has_no_limit_;
  const bool is_prepared_;
  bool is_leader_prepared_ = false;
};

}  // namespace dralo::database::postgresql
