#pragma once

#include <sql.h>

#include <utility>

namespace dralo::database::odbc {

/// A number for a parameter that ODBC's standard declares as a pointer.
inline SQLPOINTER AsPointer(SQLULEN number) {
  return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr)
}

/// A handle of the driver manager that is freed at the end; the handle from which it was allocated must
/// outlive it.
template <SQLSMALLINT kType>
class Handle {
 public:
  Handle() = default;
  explicit Handle(SQLHANDLE handle) : handle_(handle) {}
  ~Handle() { Reset(); }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Handle& operator=(Handle&& other) noexcept {
    Reset();
    handle_ = std::exchange(other.handle_, nullptr);
    return *this;
  }

  SQLHANDLE Get() const { return handle_; }

  /// Leaves it to the driver manager, which frees it with the handle from which it was allocated.
  void Release() noexcept { handle_ = nullptr; }

  void Reset() noexcept {
    if (handle_ != nullptr) SQLFreeHandle(kType, std::exchange(handle_, nullptr));
  }

 private:
  SQLHANDLE handle_ = nullptr;
};

using ConnectionHandle = Handle<SQL_HANDLE_DBC>;
using StatementHandle = Handle<SQL_HANDLE_STMT>;

}  // namespace dralo::database::odbc
