#include "database/postgresql/statement.h"

#include <algorithm>
#include <utility>

#include "database/statement_text.h"

namespace dralo::database::postgresql {

/// The line feed ends a comment at the query's end, which would hide what follows. With the keys of its
/// tables behind its order a query has one order whatever the plan, so the server may sort only the first
/// rows and share the work. Without them, the numbers of a page are not constants for the planner, so all
/// pages have the same plan, and with it the same order of equal sort keys. A function that parallel workers
/// may not call keeps them away, because their rows come in any order. It is never called. The join adds
/// nothing to any row; it prevents a sort of only the first rows, which would give equal keys another order.
std::string Statement::ToSend() const {
  if (form == Form::kPlain) return numbered;
  const bool is_first = form == Form::kFirst;
  const std::string limit =
      (is_first ? std::to_string(rows) : "$" + std::to_string(parameters + 1)) + "::bigint";
  const std::string offset = (is_first ? "0" : "$" + std::to_string(parameters + 2)) + "::bigint";
  if (!key_order.empty()) {
    const std::string part = form == Form::kOneRow ? "1" : limit + " OFFSET " + offset;
    return std::string(WithoutEnd(numbered)) + "\n" + key_order + " LIMIT " + part;
  }
  const std::string source = " FROM (" + std::string(WithoutEnd(numbered)) + "\n) dralo_row ";
  if (form == Form::kOneRow) return "SELECT *" + source + "LIMIT 1";
  return "SELECT dralo_row.*" + source + "LEFT JOIN pg_catalog.current_schema() ON false LIMIT (SELECT " +
         limit + ") OFFSET (SELECT " + offset + ")";
}

std::shared_ptr<Statement> Statement::FirstRows(std::int64_t wanted) {
  if (form != Form::kPage || parameters > 0 || !has_one_order) return nullptr;
  if (!first) {
    first = std::make_shared<Statement>(*this);
    first->form = Form::kFirst;
    first->rows = wanted;
    first->name.clear();
    first->prepared = 0;
  }
  return first->rows == wanted ? first : nullptr;
}

StatementKind StatementCache::KindOf(std::string_view text) const {
  const auto found = std::ranges::find(
      entries_, text, [](const Entry& entry) { return std::string_view(entry.statement->text); });
  return found == entries_.end() ? database::KindOf(text) : found->statement->kind;
}

StatementCache::Key StatementCache::KeyOf(std::string_view text, Form form, const Parameters& parameters) {
  Key key = std::to_string(static_cast<int>(form));
  for (const Oid type : parameters.Types()) key.append(" ").append(std::to_string(type));
  return key.append(" ").append(text);
}

std::shared_ptr<Statement> StatementCache::Find(const Key& key) {
  const auto found = std::ranges::find(entries_, key, &Entry::key);
  if (found == entries_.end()) return nullptr;
  entries_.splice(entries_.end(), entries_, found);
  found->statement->came_again = true;
  return found->statement;
}

std::shared_ptr<Statement> StatementCache::Keep(const Key& key, std::shared_ptr<Statement> statement) {
  Forget(key);
  std::shared_ptr<Statement> gone;
  if (entries_.size() >= kCapacity) {
    const auto came_once = [](const Entry& entry) { return !entry.statement->came_again; };
    auto last = std::ranges::find_if(entries_, came_once);
    if (last == entries_.end()) last = entries_.begin();
    gone = std::move(last->statement);
    entries_.erase(last);
  }
  entries_.push_back({key, std::move(statement)});
  return gone;
}

void StatementCache::Forget(const Key& key) {
  std::erase_if(entries_, [&](const Entry& entry) { return entry.key == key; });
}

}  // namespace dralo::database::postgresql
