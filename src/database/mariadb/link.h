#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "database/mariadb/library.h"
#include "database/mariadb/options.h"
#include "dralo/error.h"

namespace dralo::database::mariadb {

/// Reads the rows of a statement while the server sends them; during that time the connection is not free.
class RowReader {
 public:
  /// Makes the connection free: reads the rest of the rows, for later. A failure is reported when these rows
  /// are asked for.
  virtual void PutRestAside() noexcept = 0;

 protected:
  ~RowReader() = default;
};

/// A connection to a server that never waits longer than the connection string allows: every call of the
/// library has one deadline, however many packets it sends and reads. A connection that misses a deadline is
/// given up, and so is one that is waited for while the host wants to stop.
class Link {
 public:
  using Clock = std::chrono::steady_clock;
  using Deadline = std::optional<Clock::time_point>;  ///< Without a value: waits for ever.

  /// Throws platform::Error when no host accepts the connection, or none answers in time.
  explicit Link(const Options& options);

  /// Connects again, after Drop() or when the connection is dead. What belonged to the old connection is
  /// gone.
  void Connect();

  MYSQL* Handle() const { return handle_.get(); }

  /// A number that every new connection changes.
  int Generation() const { return generation_; }

  /// What a call of the library returns, which `start` begins and `proceed` carries on each time the server
  /// has answered, until it is done.
  template <class Answer, class Handle, class... Parameters>
  Answer Await(int (*start)(Answer*, Handle*, Parameters...), int (*proceed)(Answer*, Handle*, int),
               std::type_identity_t<Handle>* handle, std::type_identity_t<Parameters>... parameters) {
    Answer answer{};
    int awaited = start(&answer, handle, parameters...);
    if (awaited == 0) [[likely]]
      return answer;
    for (const Deadline deadline = EndOfPatience(); awaited != 0;) {
      awaited = proceed(&answer, handle, Wait(awaited, deadline));
    }
    return answer;
  }

  /// Runs a statement without rows as a text. Throws platform::Error.
  void Run(std::string_view text) { Run(text, text); }

  /// The same; `source` is the page's text for it. If it yields rows, they must be read next.
  void Run(std::string_view text, std::string_view source);

  /// Who is reading; nullptr when nobody is.
  void SetReader(RowReader* reader) noexcept { reader_ = reader; }
  bool HasReader() const noexcept { return reader_ != nullptr; }

  /// Before anything is sent, and before a statement is closed, for which the library would discard rows of
  /// the open result.
  void PutReadAside() noexcept {
    if (RowReader* const reader = std::exchange(reader_, nullptr)) reader->PutRestAside();
  }

  /// Whether the next statement would be part of an open transaction.
  bool IsInTransaction() const;

  /// Whether a statement inside a transaction has failed since the last time this was asked. The failure may
  /// have ended the transaction; IsInTransaction() knows that only after the server's next answer.
  bool TakeDoubt() { return std::exchange(is_transaction_in_doubt_, false); }

  /// The error of the server's last statement, which has failed. `text` becomes its source.
  platform::Error LastError(std::string_view text);
  platform::Error MakeError(unsigned number, const char* state, const char* message, std::string_view text);

  /// The connection was lost or given up.
  bool IsDead() const noexcept { return is_dead_; }

  bool IsGivenUp() const noexcept { return is_given_up_; }

  /// The database that the connection string names.
  const std::string& FirstDatabase() const { return options_.database; }

  /// While it lives, all calls together have only this much time, even when there is no other limit.
  class Haste {
   public:
    Haste(Link& link, Clock::duration time) : link_(link) { link_.hurried_until_ = Clock::now() + time; }
    ~Haste() { link_.hurried_until_.reset(); }
    Haste(const Haste&) = delete;
    Haste& operator=(const Haste&) = delete;

   private:
    Link& link_;
  };

  /// How long a statement may take; 0 for ever.
  std::chrono::seconds QueryTimeout() const { return std::chrono::seconds(options_.query_timeout_s); }

  /// Whether the server has sent nothing; between statements that could only be a goodbye.
  bool IsQuiet() const noexcept;

  /// Whether the server answers. Never throws.
  bool Answers() noexcept;

  /// Whether the server is a node of a Galera cluster.
  bool IsInCluster();

  /// Undoes all that was done to the session on the server; its prepared statements are gone too.
  void Reset();

  /// Leaves the connection at once, whatever the server is sending. Connect() opens another.
  void Drop() noexcept;

 private:
  struct Closer {
    void operator()(MYSQL* connection) const noexcept { Library::Get().mysql_close(connection); }
  };

  void ConnectTo(const Options::Host& host);
  void SetOptions();
  void LimitStatements();
  std::string Ask(std::string_view question);
  Deadline EndOfPatience() const;
  int Wait(int awaited, Deadline deadline);
  void GiveUp();

  const Library& library_ = Library::Get();
  const Options options_;
  std::unique_ptr<MYSQL, Closer> handle_;
  RowReader* reader_ = nullptr;
  Deadline connecting_until_;
  Deadline hurried_until_;
  bool is_connecting_ = false;
  bool is_given_up_ = false;
  bool is_stopped_ = false;  ///< It was given up because the host wanted to stop.
  bool is_dead_ = false;
  bool is_transaction_in_doubt_ = false;
  int generation_ = 0;
};

}  // namespace dralo::database::mariadb
