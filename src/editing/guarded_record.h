#pragma once

#include <memory>
#include <optional>

#include "dralo/recordset.h"
#include "editing/keyed_statement.h"
#include "editing/query_schema.h"
#include "platform/transaction.h"

namespace dralo::editing {

/// The record of a hardened page that is being changed, and the transaction that changes it. Without Commit()
/// everything is undone, whatever was done on the view's connection meanwhile.
class GuardedRecord {
 public:
  /// Begins the transaction. Throws platform::Error when the statement of the form is not accepted.
  explicit GuardedRecord(const state::Render& render);

  /// The record of the posted key, opened for changes. nullptr unless the statement of the form and the
  /// page's `sql` yield exactly this one.
  std::shared_ptr<platform::Recordset> Open();

  /// The records of the form's statement, to which one can be added.
  std::shared_ptr<platform::Recordset> OpenForNew() const;

  /// The key of the written record on which `records` stands; nothing when the statement of the form does not
  /// yield the record as it now is.
  std::optional<KeyTexts> KeyInside(platform::Recordset& records) const;

  /// The posted key of the record that Open() has found.
  const KeyTexts& Key() const { return *key_; }

  void Commit() { transaction_.Commit(); }

 private:
  const state::Render& render_;
  platform::Transaction<platform::Connection> transaction_;
  KeyedStatement form_;
  std::optional<KeyTexts> key_;
};

/// Deletes the record of the posted key, with DeleteSQL. `schema` is that of EditSQL. False when there is no
/// such record, MayDelete() says no, or the statement fails; the form or ErrorMessage says why. Throws
/// platform::Error for every other failure.
bool DeleteGuardedRecord(state::Render& render, const QuerySchema& schema);

}  // namespace dralo::editing
