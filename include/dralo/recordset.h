#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dralo/command.h"
#include "dralo/connection.h"
#include "dralo/field.h"
#include "dralo/object.h"

namespace dralo::platform {

/// How a recordset reads. Rows can be changed with kKeyset only; all of them read forward.
enum class CursorType : int { kUnspecified = -1, kForwardOnly = 0, kKeyset = 1, kDynamic = 2, kStatic = 3 };
/// Whether rows can be changed: only with kOptimistic.
enum class LockType : int {
  kUnspecified = -1,
  kReadOnly = 1,
  kPessimistic = 2,
  kOptimistic = 3,
  kBatchOptimistic = 4
};
/// Where rows wait to be read; for changes it must be kClient.
enum class CursorLocation : int { kServer = 2, kClient = 3 };

/// Which columns must still have their old values when a row is written.
enum class UpdateCriteria { kChangedColumns, kAllColumns };

/// What identifies a record where the fields hold no key that the database declares.
struct RecordIdentity {
  std::vector<std::string> fields = {};  ///< Names in any letter case; those that no field has are ignored.
  std::string condition = "";            ///< As behind WHERE, on columns that are not among the fields.
};

/// The rows of a query, read forward one at a time.
/// Opening is lazy: the statement is checked by Open(), but no row is read before a row, a field or the end
/// is asked for. Made by Environment::MakeRecordset() or Connection::Execute(). Used by one thread at a time,
/// the one that uses its connection, which it keeps alive. Functions that need rows throw Error when it is
/// not open, and all that reach the database when that fails.
class Recordset : public Object {
 public:
  /// @{
  /// The highest number of rows the recordset yields; 0 (the default) means all. Set before opening; throws
  /// Error for a negative number.
  virtual void SetMaxRecords(std::int64_t rows) = 0;
  virtual std::int64_t MaxRecords() const = 0;
  /// @}

  /// @{
  /// kServer by default. Set before opening.
  virtual void SetCursorLocation(CursorLocation location) = 0;
  virtual CursorLocation Location() const = 0;
  /// @}

  /// kChangedColumns by default, which lets somebody else change other columns meanwhile; with kAllColumns
  /// one of two changes of a row always fails.
  virtual void SetUpdateCriteria(UpdateCriteria criteria) = 0;

  /// For Update(). Without a declared key the old values of all columns are compared in any case; this finds
  /// the record faster, and more exactly where a key is not among the fields.
  virtual void SetIdentity(RecordIdentity identity) = 0;

  /// Gives a statement that yields one value, the number of all rows, and the values of its "?". It runs
  /// together with the query; see Counted(). Set before opening.
  virtual void SetCounting(std::string statement, std::vector<Variant> parameters = {}) = 0;

  /// Runs `sql`, or a bare table name, on `connection` and stands on the first row.
  /// Rows can be added and changed when the cursor is kKeyset on the client with an optimistic lock, and the
  /// columns come from one table. `options` is -1, or 1 when `sql` is a statement even if it
  /// looks like a table name. Throws Error when the statement does not run, the options are others or the
  /// recordset is open already.
  virtual void Open(std::string_view sql, const std::shared_ptr<Connection>& connection,
                    CursorType cursor = CursorType::kForwardOnly, LockType lock = LockType::kReadOnly,
                    int options = -1) = 0;

  /// Runs `command` on its active connection, with its parameters. Its type says what its text is, so both
  /// values of `options` mean the same.
  virtual void Open(Command& command, CursorType cursor = CursorType::kForwardOnly,
                    LockType lock = LockType::kReadOnly, int options = -1) = 0;

  /// Opens the rows of `rows` for changes as if they were those of `described`, which is not run. A query
  /// with another one inside it can seldom be written to; so `described`, the inner one, says what the
  /// columns are and which table they are written to. The columns correspond by position. Both run on the
  /// active connection of `described`. With the first row platform::Error tells that the rows have another
  /// number of columns.
  virtual void OpenDescribed(Command& described, Command& rows) = 0;

  /// Whether it was opened and not closed; a statement without rows leaves it closed.
  virtual bool IsOpen() const = 0;

  /// Whether there is no current row because the last one was passed. False after AddNew().
  virtual bool Eof() = 0;

  /// Goes to the next row. Throws Error at the end.
  virtual void MoveNext() = 0;

  /// The value of the counting statement: of the same moment as the rows where the database offers that, and
  /// in one trip with the first of them. Ask after the first Move(). Throws Error when the statement fails or
  /// there is none.
  virtual Variant Counted() = 0;

  /// Passes over `rows` rows, or to the end when there are fewer. As the first move it may be left to the
  /// database.
  virtual void Move(std::int64_t rows) = 0;

  /// The columns in the order of the query, the same objects until Close(). Valid at the end of the rows too.
  virtual std::span<Field* const> Fields() = 0;

  /// Starts a new row whose fields are Null.
  virtual void AddNew() = 0;

  /// Fields without a declared type take their types from the current row from now on, no longer from the
  /// first.
  virtual void TakeTypesOfRow() = 0;

  /// Writes the new or changed row. Exactly one row must be affected, and its old values must still be there;
  /// of which columns, the update criteria say. On failure nothing is changed in the database and the values
  /// set stay in the fields. Without a change nothing is written.
  virtual void Update() = 0;

  /// Makes sure that the current row still is as it was read and stays so until the connection's transaction
  /// ends. Where the database cannot lock single rows, the transaction itself does that. Throws Error when
  /// the row has changed, and when the rows cannot be changed.
  virtual void LockRow() = 0;

  /// Forgets the new row, or the changes of the current one.
  virtual void CancelUpdate() = 0;

  /// Releases the statement and the connection. Closing a closed recordset does nothing.
  virtual void Close() = 0;
};

}  // namespace dralo::platform

namespace dralo {

using platform::CursorLocation;
using platform::CursorType;
using platform::LockType;
using platform::Recordset;

}  // namespace dralo
