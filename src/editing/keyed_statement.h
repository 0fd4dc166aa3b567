#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dralo/recordset.h"
#include "platform/bound_statement.h"
#include "settings/statement_parameters.h"
#include "state/render.h"

namespace dralo::editing {

using KeyTexts = std::vector<std::string>;

/// A statement of a hardened page in which single records are looked up by EditPrimaryKeys. It is described
/// when the object is made; `render` must outlive it.
class KeyedStatement {
 public:
  /// Throws platform::Error when the statement is not accepted.
  KeyedStatement(const state::Render& render, std::string_view sql, settings::Parameters parameters);

  /// Whether all keys are columns of the statement.
  bool HasKeys() const;

  /// The statement that yields, of the statement's records, those with this key and no others; nothing when
  /// no record can have the key. Throws platform::Error when a key is no column.
  std::optional<platform::BoundStatement> ForKey(const KeyTexts& key) const;

  /// The statement that yields no record.
  platform::BoundStatement ForNone() const;

  /// Whether the statement yields exactly one record with that key.
  bool YieldsOne(const KeyTexts& key) const;

  /// The record of ForKey(), opened for changes. Closed when no record can have the key. Throws
  /// platform::Error when the statement fails.
  std::shared_ptr<platform::Recordset> OpenForChange(const KeyTexts& key) const;

 private:
  platform::BoundStatement Where(const platform::BoundStatement& condition) const;

  const state::Render& render_;
  platform::BoundStatement own_;
  platform::BoundStatement table_;
  std::shared_ptr<platform::Recordset> described_;
};

/// Whether the record on which `recordset` stands has exactly this key. The database may compare less
/// exactly, for instance without regard to letter case.
bool HasKey(const state::Render& render, platform::Recordset& recordset, const KeyTexts& key);

/// The condition that all keys have these texts, with the names that the columns of `recordset` have in the
/// table to which it writes; nothing when no record can have the key. Throws platform::Error when the records
/// cannot be changed.
std::optional<platform::BoundStatement> BaseKeyCondition(const state::Render& render,
                                                         platform::Recordset& recordset, const KeyTexts& key);

/// Runs `find` and returns what it finds; nothing also when the database says that a value does not suit its
/// column's type.
template <class Find>
auto FindOrNothing(Find&& find) -> decltype(find()) {
  constexpr std::string_view kDataExceptions = "22";
  try {
    return find();
  } catch (const platform::Error& error) {
    if (!error.SqlState().starts_with(kDataExceptions)) throw;
  }
  return {};
}

}  // namespace dralo::editing
