#include "database/odbc/statement_cache.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace dralo::database::odbc {

namespace {

/// A prepared statement takes memory of the server too.
constexpr std::size_t kMaxEntries = 32;

}  // namespace

StatementCache::Entry* StatementCache::FindEntry(std::string_view text) {
  const auto found = std::ranges::find(entries_, text, &Entry::text);
  return found == entries_.end() ? nullptr : &*found;
}

std::shared_ptr<const KnownQuery> StatementCache::Find(std::string_view text) {
  Entry* const entry = FindEntry(text);
  if (entry == nullptr) return nullptr;
  entry->last_use = ++uses_;
  return entry->query;
}

void StatementCache::Remember(std::string_view text, std::shared_ptr<const KnownQuery> query) {
  Forget(text);
  MakeRoom();
  entries_.push_back({.text = std::string(text), .query = std::move(query), .last_use = ++uses_});
}

/// A query that came once goes before one that came again, however many came once.
void StatementCache::MakeRoom() {
  if (entries_.size() < kMaxEntries) return;
  const auto order = [](const Entry& entry) {
    const bool came_again = std::ranges::any_of(entry.statements, &StatementHandle::Get);
    return std::tuple(came_again, entry.last_use);
  };
  entries_.erase(std::ranges::min_element(entries_, {}, order));
}

void StatementCache::Forget(std::string_view text) {
  std::erase_if(entries_, [&](const Entry& entry) { return entry.text == text; });
}

void StatementCache::Abandon() noexcept {
  for (Entry& entry : entries_) {
    for (StatementHandle& statement : entry.statements) statement.Release();
  }
  entries_.clear();
}

StatementHandle StatementCache::Take(std::string_view text, Yield yield) {
  Entry* const entry = FindEntry(text);
  if (entry == nullptr) return {};
  return std::move(entry->statements[static_cast<std::size_t>(yield)]);
}

void StatementCache::Keep(std::string_view text, Yield yield, StatementHandle statement) {
  Entry* const entry = FindEntry(text);
  if (entry != nullptr) entry->statements[static_cast<std::size_t>(yield)] = std::move(statement);
}

}  // namespace dralo::database::odbc
