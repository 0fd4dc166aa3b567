#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dralo/object.h"
#include "dralo/variant.h"

namespace dralo::platform {

/// A field of a record with its value.
struct NamedValue {
  std::string name;  ///< As the statement names the column.
  Variant value;     ///< A copy.
};

/// What a visitor is about to do to a record, or has just done. Lives as long as the call that it is given
/// to, and belongs to the thread of that call. Its functions return copies, which stay valid.
class Change {
 public:
  virtual ~Change() = default;
  Change(const Change&) = delete;
  Change& operator=(const Change&) = delete;

  /// "insert", "update" or "delete".
  virtual std::string_view Operation() const = 0;

  /// The fields of EditPrimaryKeys with their values; empty as long as a new record is not inserted.
  virtual std::vector<NamedValue> Key() = 0;

  /// The stored values of the fields of EditSQL, without long binary fields; empty for an insert.
  virtual std::vector<NamedValue> Old() const = 0;

  /// The values that will be stored, of the same fields; empty for a delete.
  virtual std::vector<NamedValue> Values() = 0;

  /// Stores another value, also in a field that the form does not show. Throws Error when EditSQL has no such
  /// field, when the value does not suit it, and when the record is already written or is to be deleted.
  virtual void Set(std::string_view field, const Variant& value) = 0;

  /// Refuses the change: nothing is written, and `message`, a plain text, is shown beside the field; "" as
  /// the field stands for the whole record. May be called several times. Throws Error when the record is
  /// already written.
  virtual void Refuse(std::string_view field, std::string_view message) = 0;

 protected:
  Change() = default;
};

/// What a page does about changes: the function of OnSave, OnSaved or OnDelete. Called by the thread that
/// renders, once for each change; several views may share one when their pages belong to one thread.
class ChangeHandler : public Object {
 public:
  /// `handle` must not be empty; see MakeHandler().
  explicit ChangeHandler(std::function<void(Change&)> handle) : handle_(std::move(handle)) {}

  /// What the function throws undoes the change and becomes a message.
  void operator()(Change& change) const { handle_(change); }

 private:
  std::function<void(Change&)> handle_;
};

/// The handler that calls `handle`; nullptr for an empty function.
inline std::shared_ptr<ChangeHandler> MakeHandler(std::function<void(Change&)> handle) {
  return handle ? std::make_shared<ChangeHandler>(std::move(handle)) : nullptr;
}

}  // namespace dralo::platform

namespace dralo {

using platform::Change;
using platform::ChangeHandler;
using platform::MakeHandler;
using platform::NamedValue;

}  // namespace dralo
