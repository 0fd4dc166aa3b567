#include "database/postgresql/link.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "database/interruption.h"
#include "database/postgresql/error.h"
#include "platform/statement_clock.h"

namespace dralo::database::postgresql {

namespace {

using platform::Error;

/// Lets the server's own message about its limit come first.
constexpr std::chrono::seconds kGrace{2};

}  // namespace

Link::Link(const Options& options) : options_(options) { Connect(); }

void Link::Begin() {
  if (reader_ != nullptr) std::exchange(reader_, nullptr)->SetAside();
  if (is_dropped_) {
    Connect();
    is_dropped_ = false;
  }
  if (is_too_late_) throw NoAnswer({});
  if (IsDead()) throw NoConnection("The connection to the database was lost", {});
}

void Link::Drop() noexcept {
  GiveUp();
  is_too_late_ = false;
  is_dropped_ = true;
}

void Link::SetPatience() {
  patience_.reset();
  if (options_.query_timeout_s > 0) patience_ = std::chrono::seconds(options_.query_timeout_s) + kGrace;
}

void Link::Order(const char* statement) {
  Require(libpq_.PQsendQueryParams(Handle(), statement, 0, nullptr, nullptr, nullptr, nullptr, 0));
}

void Link::Prepare(const std::string& name, const std::string& statement, const Parameters& parameters) {
  Require(libpq_.PQsendPrepare(Handle(), name.c_str(), statement.c_str(), parameters.Count(),
                               parameters.Types().data()));
}

void Link::Describe(const std::string& name) {
  Require(libpq_.PQsendDescribePrepared(Handle(), name.c_str()));
}

void Link::Execute(const std::string& name, const Parameters& parameters) {
  Require(libpq_.PQsendQueryPrepared(Handle(), name.c_str(), parameters.Count(), parameters.Values().data(),
                                     parameters.Lengths().data(), parameters.Formats().data(), 0));
}

/// Reads while it writes, because a server that has answers to send accepts no more orders.
void Link::Send() {
  StartClock();
  Require(libpq_.PQpipelineSync(Handle()));
  is_synced_ = false;
  for (;;) {
    const int left = libpq_.PQflush(Handle());
    if (left == 0) return;
    Require(left == 1 ? 1 : 0);
    if (!Wait(POLLIN | POLLOUT)) GiveUpAfterDeadline();
    Require(libpq_.PQconsumeInput(Handle()));
  }
}

/// False when the deadline has passed.
bool Link::AwaitAnswer() {
  while (libpq_.PQisBusy(Handle()) != 0) {
    if (!Wait(POLLIN)) return false;
    // What the server said before it went is still an answer.
    if (libpq_.PQconsumeInput(Handle()) == 0 && libpq_.PQisBusy(Handle()) != 0) Require(0);
  }
  return true;
}

Result Link::TakeResult() {
  Result result(libpq_.PQgetResult(Handle()));
  const ExecStatusType status = result ? libpq_.PQresultStatus(result.get()) : PGRES_EMPTY_QUERY;
  if (status == PGRES_COPY_IN || status == PGRES_COPY_OUT || status == PGRES_COPY_BOTH) {
    GiveUp();
    throw Error("COPY to or from the client is not possible; use a file of the server, or INSERT and SELECT");
  }
  if (status == PGRES_PIPELINE_SYNC) is_synced_ = true;
  return result;
}

Result Link::NextResult() {
  if (!AwaitAnswer()) GiveUpAfterDeadline();
  return TakeResult();
}

void Link::GiveUpAfterDeadline() {
  GiveUp();
  is_too_late_ = true;
  throw NoAnswer({});
}

Result Link::Answer() {
  Result answer;
  while (Result next = NextResult()) answer = std::move(next);
  return answer;
}

void Link::Split() {
#ifdef LIBPQ_HAS_CHUNK_MODE
  constexpr int kRowsPerPart = 100;
  if (libpq_.set_chunked_rows != nullptr && libpq_.set_chunked_rows(Handle(), kRowsPerPart) == 1) return;
#endif
  libpq_.PQsetSingleRowMode(Handle());
}

/// Most parts are there already, and reading the clock takes as long as a value.
Result Link::Part() {
  is_clock_due_ = true;
  return NextResult();
}

/// A mark follows every answer; a server out of step could send nothing but marks for ever.
void Link::Finish() {
  constexpr int kMostMarks = 3;
  for (int marks = 0; !is_synced_ && !IsDead();) {
    marks = NextResult() ? 0 : marks + 1;
    if (marks == kMostMarks) GiveUp();
  }
}

bool Link::FinishWithin(std::chrono::milliseconds time) {
  SetDeadline(Clock::now() + time);
  while (!is_synced_ && !IsDead()) {
    if (Clock::now() > *deadline_ || !AwaitAnswer()) return false;
    TakeResult();
  }
  return true;
}

void Link::SetRowsOfTransactionAside() noexcept {
  while (!of_transaction_.empty()) {
    RowReader* const reader = of_transaction_.back();
    reader->SetAside();
    Detach(reader);
  }
}

Result Link::Run(const char* statement) {
  const std::string only(statement);
  return std::move(Run({&only, 1}).front());
}

std::vector<Result> Link::Run(std::span<const std::string> statements) {
  Begin();
  for (const std::string& statement : statements) Order(statement.c_str());
  Send();
  std::vector<Result> answers;
  for (const std::string& statement : statements) {
    const Result& answer = answers.emplace_back(Answer());
    RequireServer(answer, statement);
    const ExecStatusType status = libpq_.PQresultStatus(answer.get());
    if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK) continue;
    Finish();
    throw Failure(answer, statement);
  }
  Finish();
  return answers;
}

void Link::RequireServer(const Result& failure, std::string_view statement) {
  constexpr std::string_view kInternalError = "XX000";
  if (!is_pooled_) return;
  const char* const state = libpq_.PQresultErrorField(failure.get(), PG_DIAG_SQLSTATE);
  if (state == nullptr || state != kInternalError) return;
  GiveUp();
  throw NoConnection(libpq_.PQresultErrorField(failure.get(), PG_DIAG_MESSAGE_PRIMARY), statement);
}

Error Link::Failure(const Result& answer, std::string_view statement) {
  constexpr std::string_view kReadOnly = "25006";
  Error error = ErrorOf(answer.get(), statement);
  refuses_changes_ |= error.SqlState() == kReadOnly;
  return error;
}

PGTransactionStatusType Link::Transaction() const {
  return handle_ ? libpq_.PQtransactionStatus(Handle()) : PQTRANS_UNKNOWN;
}

bool Link::IsDead() const noexcept {
  return handle_ == nullptr || libpq_.PQstatus(handle_.get()) == CONNECTION_BAD;
}

bool Link::IsQuiet() const noexcept {
  if (IsDead()) return false;
  pollfd watched{libpq_.PQsocket(handle_.get()), POLLIN | POLLRDHUP, 0};
  return is_synced_ && poll(&watched, 1, 0) == 0;
}

void Link::StartClock() {
  SetDeadline({});
  if (patience_) deadline_ = Clock::now() + *patience_;
}

PGconn* Link::Handle() const {
  if (!handle_) throw NoConnection({}, {});
  return handle_.get();
}

/// A call that fails leaves the trip unfinished, so the connection is given up.
void Link::Require(int code) {
  if (code != 0) return;
  const std::string reason = libpq_.PQerrorMessage(Handle());
  GiveUp();
  throw NoConnection(reason, {});
}

/// Waits until the socket is ready for one of the events. False when the deadline has passed, even if the
/// server sends something all the time.
bool Link::Wait(short events) {
  constexpr std::chrono::milliseconds kSlice{100};
  if (is_clock_due_) StartClock();
  for (;;) {
    if (HostWantsToStop()) {
      GiveUp();
      throw Error("The statement was ended: the host wants to stop");
    }
    if (platform::StatementClock::IsOver()) {
      GiveUp();
      throw Error(kTimeOfPageIsOver);
    }
    auto slice = kSlice;
    if (deadline_) {
      const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline_ - Clock::now());
      if (left.count() <= 0) return false;
      slice = std::min(slice, left);
    }
    pollfd watched{libpq_.PQsocket(Handle()), events, 0};
    const int ready = poll(&watched, 1, static_cast<int>(slice.count()));
    if (ready > 0) return true;
    if (ready < 0 && errno != EINTR) throw NoConnection("The socket of the connection fails", {});
  }
}

}  // namespace dralo::database::postgresql
