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
    kParts,  ///< They come as the server sends them, without a time limit if no functions are called.
  };

  /// What is sent before everything else.
  enum class Opening {
    kNone,
    kTransaction,  ///< Begins a transaction.
    kSavepoint,    ///< Lets a statement fail without ending the user's transaction.
    kKeptPlan,     ///< Outside of transactions: has the server keep the plan of this statement.
  };

  /// A statement that is run before it in the same trip; when the leader fails, the rest is not run.
  struct Leader {
    Statement& statement;
    const Parameters& parameters;
  };

  struct Answers {
    Result columns;  ///< nullptr when the statement was prepared before.
    Result rows;
  };

  /// Sends it. `parameters` include those of the form. Rows in parts cannot have a leader. Throws
  /// platform::Error.
  Execution(Link& link, Statement& statement, const Parameters& parameters, Rows rows, Opening opening,
            const Leader* leader = nullptr);

  /// The leader's answers; to be read first. Throws platform::Error when the leader has failed.
  Answers Lead(const Leader& leader);

  /// What the server says about the columns; nullptr when the statement was prepared before.
  Result Description();

  /// All rows, or the number of rows changed. Then the connection is free.
  Result All();

  /// After the description, before the first Part().
  void Split() { link_.Split(); }

  /// Some rows; nullptr after the last ones, when the connection is free.
  Result Part();

  /// Whether the server ends it after some time, within which its rows must be read.
  bool IsLimited() const { return link_.Patience().has_value() && !has_no_limit_; }

  /// Throws if `answer` is a failure.
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
