#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::tests {

/// Notes what SQLite runs on the connections that are opened while it lives. One at a time.
class Trace {
 public:
  struct Run {
    std::string text;  ///< With the values of its parameters.
    int steps = 0;     ///< Instructions of SQLite's virtual machine.
    int runs = 0;      ///< How often this prepared statement has run.
  };

  Trace() {
    current = this;
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(Watch));
  }
  ~Trace() {
    sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(Watch));
    current = nullptr;
  }
  Trace(const Trace&) = delete;
  Trace& operator=(const Trace&) = delete;

  /// How often the prepared statement that ran last for `text` has run; 0 when none did.
  int RunsOf(std::string_view text) const {
    int runs = 0;
    for (const Run& run : runs_) {
      if (run.text == text) runs = run.runs;
    }
    return runs;
  }

  /// Forgets what was noted so far.
  void Clear() { runs_.clear(); }

  /// The statements that ended, in the order of their end.
  const std::vector<Run>& Runs() const { return runs_; }

 private:
  static int Watch(sqlite3* connection, char** /*message*/, const void* /*api*/) {
    return sqlite3_trace_v2(connection, SQLITE_TRACE_PROFILE, Note, nullptr);
  }

  static int Note(unsigned /*event*/, void* /*context*/, void* statement, void* /*nanoseconds*/) {
    auto* const handle = static_cast<sqlite3_stmt*>(statement);
    const std::unique_ptr<char, void (*)(void*)> text(sqlite3_expanded_sql(handle), sqlite3_free);
    if (current && text) {
      current->runs_.push_back({text.get(), sqlite3_stmt_status(handle, SQLITE_STMTSTATUS_VM_STEP, 1),
                                sqlite3_stmt_status(handle, SQLITE_STMTSTATUS_RUN, 0)});
    }
    return 0;
  }

  static inline Trace* current = nullptr;
  std::vector<Run> runs_;
};

}  // namespace dralo::tests
