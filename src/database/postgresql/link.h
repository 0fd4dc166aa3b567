#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "database/postgresql/libpq.h"
#include "database/postgresql/options.h"
#include "database/postgresql/parameters.h"
#include "dralo/error.h"

namespace dralo::database::postgresql {

/// Reads the rows of a statement while the server sends them; during that time the connection is not free.
class RowReader {
 public:
  RowReader() = default;
  virtual ~RowReader() = default;
  RowReader(const RowReader&) = delete;
  RowReader& operator=(const RowReader&) = delete;

  /// Makes the connection free: keeps the rest of the rows elsewhere. A failure is reported when the row is
  /// asked for.
  virtual void SetAside() noexcept = 0;
};

/// A connection to a server, which never waits longer than the connection string allows.
///
/// Orders are collected, sent together and answered one after the other: a trip, from Begin() to Finish().
/// When one of them fails, the server skips those after it.
class Link {
 public:
  /// Throws platform::Error when no host accepts the connection, or none answers in time.
  explicit Link(const Options& options);

  /// Starts the orders of a trip. Connects again when the connection was dropped. Throws platform::Error when
  /// it was lost.
  void Begin();

  // Orders.
  void Order(const char* statement);
  void Prepare(const std::string& name, const std::string& statement, const Parameters& parameters);
  void Describe(const std::string& name);
  void Execute(const std::string& name, const Parameters& parameters);

  /// Sends the orders.
  void Send();

  /// The complete answer to the next order.
  Result Answer();

  /// Makes the answer to the next order come in parts, as the server sends it.
  void Split();

  /// The next part of such an answer: of PGRES_SINGLE_TUPLE or PGRES_TUPLES_CHUNK with rows, the last one
  /// without; nullptr after it. Each part has a time limit of its own.
  Result Part();

  /// Skips the answers that were not asked for.
  void Finish();

  /// The same, but takes at most `time`; returns false when there is more.
  bool FinishWithin(std::chrono::milliseconds time);

  /// The trip goes on until `reader` has read its rows; then it is set to nullptr.
  void SetReader(RowReader* reader) { reader_ = reader; }

  /// While `reader` has rows that go with the transaction.
  void Attach(RowReader* reader) { of_transaction_.push_back(reader); }
  void Detach(RowReader* reader) noexcept { std::erase(of_transaction_, reader); }

  /// Before the transaction, or a part of it, ends.
  void SetRowsOfTransactionAside() noexcept;

  /// A trip of one order. Returns the answer. Throws platform::Error when it is a failure.
  Result Run(const char* statement);

  /// A trip of several orders. Returns their answers. Throws platform::Error when one is a failure.
  std::vector<Result> Run(std::span<const std::string> statements);

  /// Where a pooler has lost its server, it answers with an error of its own: gives up and throws what a lost
  /// connection is. For a failure, before the rest of its trip is read, which may never come.
  void RequireServer(const Result& failure, std::string_view statement);

  /// The failure that `answer` to `statement` is.
  platform::Error Failure(const Result& answer, std::string_view statement);

  /// Whether the server has refused a change. Another server may accept it.
  bool RefusesChanges() const { return refuses_changes_; }

  /// The state of the transaction after a trip.
  PGTransactionStatusType Transaction() const;

  /// Whether statements and settings may not stay with one connection of the server, because a pooler is
  /// between.
  bool IsPooled() const { return is_pooled_; }

  /// Whether the server has sent nothing; between trips that could only be a goodbye.
  bool IsQuiet() const noexcept;

  /// The connection was lost or given up.
  bool IsDead() const noexcept;

  /// Closes the connection; nobody waits for its statements any more.
  void GiveUp() noexcept { handle_.reset(); }

  /// The same, but the next trip opens another one.
  void Drop() noexcept;

  /// Counts the connections from 1; a new one has no prepared statements.
  std::int64_t Number() const { return number_; }

  /// The user may have changed the server's own limit, so there is none any more.
  void ForgoLimit() { patience_.reset(); }

  /// Sets the limit of the connection string again.
  void SetPatience();

  /// The longest time until the server answers; no value means for ever.
  const std::optional<std::chrono::seconds>& Patience() const { return patience_; }

 private:
  using Clock = std::chrono::steady_clock;

  struct Closer {
    void operator()(PGconn* connection) const noexcept { Libpq::Get().PQfinish(connection); }
  };

  void Connect();
  void ConnectTo(const Options::Host& host, const std::string& attributes);
  bool TryWithOptions(const Options::Host& host, const std::string& attributes);
  void TryToConnect(const Options::Host& host, const std::string& attributes,
                    const std::string& start_options);
  void RequireForms();
  void FindPooler();
  void StartClock();
  void SetDeadline(std::optional<Clock::time_point> deadline) {
    deadline_ = deadline;
    is_clock_due_ = false;
  }
  PGconn* Handle() const;
  void Require(int code);
  bool Wait(short events);
  bool AwaitAnswer();
  Result TakeResult();
  Result NextResult();
  [[noreturn]] void GiveUpAfterDeadline();

  const Libpq& libpq_ = Libpq::Get();
  const Options options_;
  std::unique_ptr<PGconn, Closer> handle_;
  bool is_pooled_ = false;
  bool is_synced_ = true;  ///< All answers were read.
  bool is_dropped_ = false;
  bool is_too_late_ = false;  ///< It was given up after a deadline.
  bool refuses_changes_ = false;
  std::int64_t number_ = 0;
  RowReader* reader_ = nullptr;
  std::vector<RowReader*> of_transaction_;
  std::optional<std::chrono::seconds> patience_;
  std::optional<Clock::time_point> deadline_;
  bool is_clock_due_ = false;  ///< The next wait starts the clock.
};

}  // namespace dralo::database::postgresql
