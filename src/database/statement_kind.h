#pragma once

#include <string_view>

namespace dralo::database {

/// What the words of a statement say about it.
struct StatementKind {
  /// It only reads.
  bool is_query = false;

  /// It may stand where a query can: in the declaration of a cursor, or before a limit.
  bool is_select = false;

  bool begins_transaction = false;
  bool ends_transaction = false;

  /// It does one of these, divides a transaction, or sets its properties.
  bool controls_transaction = false;

  /// It may change which tables and columns exist.
  bool defines = false;

  /// It may leave something in the session that the next user would meet: a setting, a temporary table, a
  /// lock.
  bool leaves_traces = false;

  /// It calls a function that is not known to be harmless, and that may leave such a thing too.
  bool calls_functions = false;
};

StatementKind KindOf(std::string_view text);

}  // namespace dralo::database
