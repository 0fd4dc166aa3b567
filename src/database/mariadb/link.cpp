#include "database/mariadb/link.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "database/interruption.h"
#include "database/message_line.h"
#include "platform/statement_clock.h"

namespace dralo::database::mariadb {

namespace {

using platform::Error;
using Seconds = std::chrono::seconds;
using Milliseconds = std::chrono::milliseconds;

/// Lets the server's own message about its limit come first.
constexpr Seconds kGrace{2};

/// How often the host is asked whether it wants to stop.
constexpr Milliseconds kSlice{100};

/// The library runs its calls on a stack of their own while they wait. The usual 60 KB are not enough for
/// looking up a name or for TLS.
constexpr std::size_t kStackBytes = 262'144;

/// The library can be told that time is up only when it has a limit of its own, however long.
constexpr unsigned kNoLimitS = 1'000'000;

/// Includes a node that has lost its cluster (1047), because another host may still serve.
constexpr unsigned kLost[] = {2006, 2013, 2055, 1053, 1927, 4031, 1047};

/// For a lock that another transaction has.
constexpr unsigned kKeptWaiting = 1205;

/// Wrong users, passwords and databases are wrong on every host; trying all of them could lock the user out.
constexpr int kRefusals[] = {1044, 1045, 1049, 1698};

/// Where the system has the certificates that it trusts; nullptr when it is not known. Without it libraries
/// from 3.4 on also take a server of an unknown authority that proves to know the password.
const char* FolderOfAuthorities() {
  for (const char* folder : {"/etc/ssl/certs", "/etc/pki/tls/certs"}) {
    std::error_code ignored;
    if (std::filesystem::is_directory(folder, ignored)) return folder;
  }
  return nullptr;
}

}  // namespace

Link::Link(const Options& options) : options_(options) { Connect(); }

/// Every host gets its share of the time, so that a frozen one does not use it up for the others.
void Link::Connect() {
  const auto start = Clock::now();
  const Seconds limit(options_.connect_timeout_s);
  auto left = static_cast<int>(options_.hosts.size());
  for (const Options::Host& host : options_.hosts) {
    const auto now = Clock::now();
    const auto share = limit.count() > 0
                           ? std::max<Clock::duration>((start + limit - now) / left, Milliseconds(1))
                           : Clock::duration::zero();
    connecting_until_ = limit.count() > 0 ? Deadline(now + share) : std::nullopt;
    try {
      is_connecting_ = true;
      ConnectTo(host);
      LimitStatements();
      if (options_.hosts.size() > 1) Run("DO 0");  // A node that has lost its cluster lets in, but refuses.
      is_connecting_ = false;
      return;
    } catch (const Error& error) {
      is_connecting_ = false;
      handle_.reset();
      is_dead_ = true;
      const bool is_refused = std::ranges::find(kRefusals, error.Number()) != std::end(kRefusals);
      if (--left > 0 && !is_refused) continue;
      throw Error("The database cannot be opened: " + std::string(error.Description()), error.Number(),
                  error.SqlState());
    }
  }
}

void Link::ConnectTo(const Options::Host& host) {
  handle_.reset(library_.mysql_init(nullptr));
  if (!handle_) throw Error("the client library gives no connection");
  is_dead_ = is_given_up_ = is_stopped_ = is_transaction_in_doubt_ = false;
  ++generation_;
  SetOptions();
  const bool is_socket = host.name.starts_with('/');
  const MYSQL* const connected =
      Await(library_.mysql_real_connect_start, library_.mysql_real_connect_cont, Handle(),
            is_socket ? "localhost" : host.name.c_str(), options_.user.c_str(), options_.password.c_str(),
            options_.database.empty() ? nullptr : options_.database.c_str(), host.port,
            is_socket ? host.name.c_str() : nullptr, CLIENT_FOUND_ROWS);
  if (connected == nullptr) throw LastError({});
  // When the server has no encryption, the library goes on without, whatever it was told.
  const bool must_be_encrypted = options_.ssl_mode >= SslMode::kRequired;
  if (must_be_encrypted && library_.mysql_get_ssl_cipher(Handle()) == nullptr) {
    throw Error("the server offers no encryption, which the SSL Mode of the connection string asks for");
  }
}

void Link::SetOptions() {
  const auto set = [&](mysql_option option, const auto& value) {
    library_.mysql_options(Handle(), option, &value);
  };
  set(MYSQL_OPT_NONBLOCK, kStackBytes);
  for (const mysql_option limit : {MYSQL_OPT_READ_TIMEOUT, MYSQL_OPT_WRITE_TIMEOUT}) set(limit, kNoLimitS);
  // The library looks up names and starts encryption without letting the caller wait for them.
  const auto limit_s = static_cast<unsigned>(options_.connect_timeout_s);
  set(MYSQL_OPT_CONNECT_TIMEOUT, limit_s > 0 ? limit_s : kNoLimitS);
  set(MYSQL_OPT_LOCAL_INFILE, 0U);  // A server could ask for any file of this machine.
  library_.mysql_options(Handle(), MYSQL_SET_CHARSET_NAME, "utf8mb4");
  set(MYSQL_OPT_SSL_ENFORCE, static_cast<my_bool>(options_.ssl_mode != SslMode::kDisabled));
  set(MYSQL_OPT_SSL_VERIFY_SERVER_CERT, static_cast<my_bool>(options_.ssl_mode == SslMode::kVerified));
  if (!options_.ssl_authorities.empty()) {
    library_.mysql_options(Handle(), MYSQL_OPT_SSL_CA, options_.ssl_authorities.c_str());
  } else if (const char* folder = FolderOfAuthorities(); options_.ssl_mode == SslMode::kVerified && folder) {
    library_.mysql_options(Handle(), MYSQL_OPT_SSL_CAPATH, folder);
  }
}

/// MySQL limits only queries, and in milliseconds.
void Link::LimitStatements() {
  if (options_.query_timeout_s == 0) return;
  const std::string limit = std::to_string(options_.query_timeout_s);
  Run(library_.mariadb_connection(Handle()) != 0 ? "SET SESSION max_statement_time=" + limit
                                                 : "SET SESSION max_execution_time=" + limit + "000");
}

Link::Deadline Link::EndOfPatience() const {
  if (is_connecting_) return connecting_until_;
  if (hurried_until_) return hurried_until_;
  if (options_.query_timeout_s == 0) return std::nullopt;
  return Clock::now() + Seconds(options_.query_timeout_s) + kGrace;
}

/// Which of the events that the library awaits have happened; "time is up" when the deadline has passed,
/// which makes its call fail.
int Link::Wait(int awaited, Deadline deadline) {
  const auto asked = [&](int event, int flag) { return (awaited & event) != 0 ? flag : 0; };
  const int flags =
      asked(MYSQL_WAIT_READ, POLLIN) | asked(MYSQL_WAIT_WRITE, POLLOUT) | asked(MYSQL_WAIT_EXCEPT, POLLPRI);
  pollfd watched{library_.mysql_get_socket(Handle()), static_cast<short>(flags), 0};
  for (;;) {
    Clock::duration left = kSlice;
    if (deadline) left = std::clamp<Clock::duration>(*deadline - Clock::now(), Clock::duration::zero(), left);
    const int count = poll(&watched, 1, static_cast<int>(std::chrono::ceil<Milliseconds>(left).count()));
    if (count > 0) break;
    is_stopped_ = HostWantsToStop() || platform::StatementClock::IsOver();
    if (!is_stopped_ && (!deadline || Clock::now() < *deadline)) continue;
    GiveUp();
    return MYSQL_WAIT_TIMEOUT;
  }
  const auto happened = [&](int flag, int event) { return (watched.revents & flag) != 0 ? event : 0; };
  const int events = happened(POLLIN | POLLHUP | POLLERR, MYSQL_WAIT_READ) |
                     happened(POLLOUT | POLLHUP | POLLERR, MYSQL_WAIT_WRITE) |
                     happened(POLLPRI, MYSQL_WAIT_EXCEPT);
  return events & awaited;
}

void Link::GiveUp() {
  is_given_up_ = is_dead_ = true;
  shutdown(library_.mysql_get_socket(Handle()), SHUT_RDWR);
}

void Link::Run(std::string_view text, std::string_view source) {
  const bool is_done = handle_ && Await(library_.mysql_real_query_start, library_.mysql_real_query_cont,
                                        Handle(), text.data(), text.size()) == 0;
  if (!is_done) throw LastError(source);
}

bool Link::IsInTransaction() const {
  return handle_ && (handle_->server_status & SERVER_STATUS_IN_TRANS) != 0;
}

Error Link::LastError(std::string_view text) {
  if (!handle_) return Error("The connection to the database is closed", 2006, "08003", std::string(text));
  return MakeError(library_.mysql_errno(Handle()), library_.mysql_sqlstate(Handle()),
                   library_.mysql_error(Handle()), text);
}

Error Link::MakeError(unsigned number, const char* state, const char* message, std::string_view text) {
  is_dead_ |= std::ranges::find(kLost, number) != std::end(kLost);
  is_transaction_in_doubt_ |= IsInTransaction();
  std::string line = MessageLine(message);
  std::string sqlstate = state;
  if (is_dead_) sqlstate = "08S01";  // Not all failures of connections say so themselves.
  if (is_connecting_ && sqlstate == "HY000") sqlstate = "08001";
  if (is_stopped_) {
    line = "The page has run out of time; the connection is given up";
    sqlstate = "HY008";
  } else if (is_given_up_) {
    line = is_connecting_ ? "it has not answered in time"
                          : "The database has not answered in time; the connection is given up";
    sqlstate = "HYT00";
  } else if (sqlstate == "40001") {
    line = "The database has undone the transaction for another one that came first; try again";
  } else if (number == kKeptWaiting) {
    line = "Another transaction has kept the record locked for too long; try again";
  }
  line += " (SQLSTATE " + sqlstate + ")";
  return Error(line, static_cast<int>(is_given_up_ ? 0 : number), sqlstate, std::string(text));
}

bool Link::IsQuiet() const noexcept {
  if (!handle_ || is_dead_) return false;
  pollfd watched{library_.mysql_get_socket(Handle()), POLLIN | POLLRDHUP, 0};
  return poll(&watched, 1, 0) == 0;
}

bool Link::Answers() noexcept {
  return IsQuiet() && Await(library_.mysql_ping_start, library_.mysql_ping_cont, Handle()) == 0;
}

/// The first value of the answer.
std::string Link::Ask(std::string_view question) {
  Run(question);
  MYSQL_RES* const result =
      Await(library_.mysql_store_result_start, library_.mysql_store_result_cont, Handle());
  if (result == nullptr) throw LastError(question);
  const MYSQL_ROW row = library_.mysql_fetch_row(result);
  std::string value = row != nullptr && row[0] != nullptr ? row[0] : "";
  library_.mysql_free_result(result);
  return value;
}

bool Link::IsInCluster() {
  return library_.mariadb_connection(Handle()) != 0 && Ask("SELECT @@wsrep_on") == "1";
}

void Link::Reset() {
  const int failure =
      Await(library_.mysql_reset_connection_start, library_.mysql_reset_connection_cont, Handle());
  if (failure != 0) throw LastError({});
  LimitStatements();
}

/// Without a goodbye, for which the library would first read everything that the server is sending.
void Link::Drop() noexcept {
  if (!handle_) return;
  shutdown(library_.mysql_get_socket(Handle()), SHUT_RDWR);
  handle_.reset();
  is_dead_ = true;
}

}  // namespace dralo::database::mariadb
