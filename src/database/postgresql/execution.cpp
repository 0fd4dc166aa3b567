#include "database/postgresql/execution.h"

#include <chrono>

namespace dralo::database::postgresql {

namespace {

/// Not SET LOCAL, which leaves a warning in the server's log when there is no transaction yet.
constexpr const char* kNoLimit = "SELECT pg_catalog.set_config('statement_timeout', '0', true)";

/// Around a statement in a transaction of its own: if it fails, the first is undone.
constexpr const char* kKeepPlan = "SET plan_cache_mode TO force_generic_plan";
constexpr const char* kPlanEachTime = "RESET plan_cache_mode";

}  // namespace

/// The server's limit includes the time that the reader takes for the rows. So long results run without it;
/// the client has a limit for each part. But functions may change something: such a statement must not go on
/// after it was given up, so it keeps the server's limit.
Execution::Execution(Link& link, Statement& statement, const Parameters& parameters, Rows rows,
                     Opening opening, const Leader* leader)
    : link_(link),
      statement_(statement),
      rows_(rows),
      is_guarded_(opening == Opening::kSavepoint),
      has_no_limit_(rows == Rows::kParts && link.Patience().has_value() && !statement.kind.calls_functions),
      is_prepared_(statement.IsPreparedOn(link)) {
  const bool is_in_transaction = opening != Opening::kNone || link_.Transaction() == PQTRANS_INTRANS;
  if (opening == Opening::kTransaction) link_.Order("BEGIN");
  if (is_guarded_) link_.Order("SAVEPOINT dralo_statement");
  if (opening == Opening::kKeptPlan) link_.Order(kKeepPlan);
  if (leader != nullptr) {
    is_leader_prepared_ = leader->statement.IsPreparedOn(link);
    Order(leader->statement, leader->parameters, true);
  }
  if (has_no_limit_) link_.Order(kNoLimit);
  Order(statement_, parameters, rows_ != Rows::kNone);
  if (is_in_transaction && has_no_limit_) link_.Order("SET LOCAL statement_timeout TO DEFAULT");
  if (is_guarded_) link_.Order("RELEASE dralo_statement");
  if (opening == Opening::kKeptPlan) link_.Order(kPlanEachTime);
  link_.Send();
  if (opening != Opening::kNone) Require(link_.Answer());
  if (has_no_limit_) Require(link_.Answer());
}

void Execution::Order(const Statement& statement, const Parameters& parameters, bool is_run) {
  if (!statement.IsPreparedOn(link_)) {
    link_.Prepare(statement.name, statement.ToSend(), parameters);
    link_.Describe(statement.name);
  }
  if (is_run) link_.Execute(statement.name, parameters);
}

Result Execution::ColumnsOf(Statement& statement) {
  Require(link_.Answer(), statement);
  if (!statement.name.empty()) statement.prepared = link_.Number();
  Result answer = link_.Answer();
  Require(answer, statement);
  return answer;
}

Execution::Answers Execution::Lead(const Leader& leader) {
  Answers answers;
  if (!is_leader_prepared_) answers.columns = ColumnsOf(leader.statement);
  answers.rows = link_.Answer();
  Require(answers.rows, leader.statement);
  return answers;
}

Result Execution::Description() {
  if (is_prepared_) return nullptr;
  Result answer = ColumnsOf(statement_);
  if (rows_ == Rows::kNone) link_.Finish();
  return answer;
}

Result Execution::All() {
  Result answer = link_.Answer();
  Require(answer);
  link_.Finish();
  return answer;
}

Result Execution::Part() {
  Result part = link_.Part();
  if (!part) {
    link_.Finish();
    return nullptr;
  }
  Require(part);
  return part;
}

void Execution::Require(const Result& answer, const Statement& statement) {
  const ExecStatusType status = answer ? Libpq::Get().PQresultStatus(answer.get()) : PGRES_FATAL_ERROR;
  if (status != PGRES_FATAL_ERROR && status != PGRES_BAD_RESPONSE && status != PGRES_PIPELINE_ABORTED) return;
  link_.RequireServer(answer, statement.text);
  link_.Finish();
  Recover();
  throw link_.Failure(answer, statement.text);
}

/// If it fails, the connection is gone, and the transaction with it.
void Execution::Recover() {
  if (!is_guarded_ || link_.Transaction() != PQTRANS_INERROR) return;
  try {
    link_.Run("ROLLBACK TO SAVEPOINT dralo_statement");
    link_.Run("RELEASE dralo_statement");
  } catch (const platform::Error&) {
    link_.GiveUp();
  }
}

}  // namespace dralo::database::postgresql
