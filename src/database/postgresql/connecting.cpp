#include <poll.h>

#include <new>
#include <utility>
#include <vector>

#include "database/postgresql/error.h"
#include "database/postgresql/link.h"

namespace dralo::database::postgresql {

namespace {

using platform::Error;

/// Makes the server soon notice that nobody waits for a statement any more; since PostgreSQL 14.
constexpr std::string_view kCheckInterval = "client_connection_check_interval";

/// The last two make all pages of a query come from one plan, and scans of a table begin at its beginning.
constexpr std::string_view kForms =
    "-c DateStyle=ISO -c IntervalStyle=postgres -c extra_float_digits=1 -c synchronize_seqscans=off "
    "-c plan_cache_mode=force_custom_plan -c cursor_tuple_fraction=1";

/// A packet of the server may be lost for ever; with these a vanished host is noticed.
constexpr std::pair<const char*, const char*> kFixed[] = {{"client_encoding", "UTF8"},
                                                          {"keepalives_idle", "10"},
                                                          {"keepalives_interval", "5"},
                                                          {"keepalives_count", "4"},
                                                          {"fallback_application_name", "dralo"}};

void IgnoreNotice(void* /*unused*/, const PGresult* /*notice*/) {}

std::string StartOptions(const Options& options, bool checks_client) {
  std::string text(kForms);
  if (options.query_timeout_s > 0) {
    text += " -c statement_timeout=" + std::to_string(options.query_timeout_s * 1000);
  }
  if (checks_client) text.append(" -c ").append(kCheckInterval).append("=500");
  return text;
}

/// A pooler refuses options in this way.
bool IsRefusalOfOptions(std::string_view message) {
  return message.find("startup parameter") != message.npos;
}

/// A server that does not know the check, or whose system cannot make it, refuses it in this way.
bool IsRefusalOfCheck(std::string_view message) { return message.find(kCheckInterval) != message.npos; }

/// The attributes to look for, one after the other, each on all hosts.
std::vector<std::string> Rounds(const Options& options) {
  if (options.target_attributes == "prefer-standby") return {"standby", "any"};
  return {options.target_attributes};
}

}  // namespace

/// One host after the other, each with a share of the time, because the client library never gives up a
/// frozen host.
void Link::Connect() {
  const std::vector<std::string> rounds = Rounds(options_);
  auto attempts = static_cast<int>(rounds.size() * options_.hosts.size());
  const auto end = Clock::now() + std::chrono::seconds(options_.connect_timeout_s);
  std::string reasons;
  for (const std::string& attributes : rounds) {
    for (const Options::Host& host : options_.hosts) {
      try {
        SetDeadline({});
        if (options_.connect_timeout_s > 0) deadline_ = Clock::now() + (end - Clock::now()) / attempts--;
        return ConnectTo(host, attributes);
      } catch (const Error& error) {
        handle_.reset();
        if (reasons.find(error.what()) != reasons.npos) continue;
        reasons.append(reasons.empty() ? "" : "; ").append(error.what());
      }
    }
  }
  throw Error("The database cannot be opened: " + reasons + " (SQLSTATE 08001)", CONNECTION_BAD, "08001");
}

void Link::ConnectTo(const Options::Host& host, const std::string& attributes) {
  is_too_late_ = false;
  refuses_changes_ = false;
  is_pooled_ = !TryWithOptions(host, attributes);
  if (is_pooled_) TryToConnect(host, attributes, {});
  if (libpq_.PQsetnonblocking(Handle(), 1) != 0 || libpq_.PQenterPipelineMode(Handle()) != 1) {
    throw Error(OneLine(libpq_.PQerrorMessage(Handle())));
  }
  is_synced_ = true;
  RequireForms();
  FindPooler();
  ++number_;
  SetPatience();
}

/// False when the server accepts none of these options.
bool Link::TryWithOptions(const Options::Host& host, const std::string& attributes) {
  for (const bool checks_client : {true, false}) {
    try {
      TryToConnect(host, attributes, StartOptions(options_, checks_client));
      return true;
    } catch (const Error& error) {
      const bool is_refusal = IsRefusalOfOptions(error.what());
      if (!is_refusal && !(checks_client && IsRefusalOfCheck(error.what()))) throw;
      if (is_refusal && !IsRefusalOfCheck(error.what())) return false;
    }
  }
  return false;
}

/// Dates are read in this form; without options it is the one that the database or the user has set.
void Link::RequireForms() {
  const char* const form = libpq_.PQparameterStatus(Handle(), "DateStyle");
  if (form == nullptr || !std::string_view(form).starts_with("ISO")) {
    throw Error("the server writes days in another form than ISO; set DateStyle to ISO for the database");
  }
}

void Link::TryToConnect(const Options::Host& host, const std::string& attributes,
                        const std::string& start_options) {
  std::vector<const char*> keys;
  std::vector<const char*> values;
  const auto add = [&](const char* key, const char* value) {
    if (*value == '\0') return;
    keys.push_back(key);
    values.push_back(value);
  };
  for (const auto& [key, value] : options_.settings) add(key.c_str(), value.c_str());
  for (const auto& [key, value] : kFixed) add(key, value);
  add("host", host.name.c_str());
  add("port", host.port.c_str());
  add("target_session_attrs", attributes.c_str());
  add("options", start_options.c_str());
  keys.push_back(nullptr);
  values.push_back(nullptr);

  handle_.reset(libpq_.PQconnectStartParams(keys.data(), values.data(), 0));
  if (!handle_) throw std::bad_alloc();
  libpq_.PQsetNoticeReceiver(Handle(), IgnoreNotice, nullptr);
  auto state = PGRES_POLLING_WRITING;
  while (libpq_.PQstatus(Handle()) != CONNECTION_BAD && state != PGRES_POLLING_OK) {
    if (!Wait(state == PGRES_POLLING_READING ? POLLIN : POLLOUT)) {
      throw Error("the server has not answered in time");
    }
    state = libpq_.PQconnectPoll(Handle());
    if (state == PGRES_POLLING_FAILED) break;
  }
  if (libpq_.PQstatus(Handle()) != CONNECTION_OK) throw Error(OneLine(libpq_.PQerrorMessage(Handle())));
}

/// A pooler gives its clients numbers of its own.
void Link::FindPooler() {
  Order("SELECT pg_catalog.pg_backend_pid()");
  const auto deadline = deadline_;
  Send();  // A few bytes, for which it does not wait.
  deadline_ = deadline;
  const Result answer = Answer();
  Finish();
  const bool has_number = libpq_.PQntuples(answer.get()) == 1;
  is_pooled_ = is_pooled_ || !has_number ||
               libpq_.PQgetvalue(answer.get(), 0, 0) != std::to_string(libpq_.PQbackendPID(Handle()));
}

}  // namespace dralo::database::postgresql
