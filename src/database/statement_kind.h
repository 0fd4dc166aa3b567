#pragma once

#include <string_view>

namespace dralo::database {

/// What the words of a statement tell about it.
struct StatementKind {
  /// It only reads.
  bool is_query = false;

  /// It may stand where a query does: in the declaration of a cursor, or in front of a limit.
  bool is_select = false;

  bool begins_transaction = false;
  bool ends_transaction = false;

  /// It does one of these, or divides a transaction, or sets what one is like.
  bool controls_transaction = false;

  /// It may change which tables and columns there are.
  bool defines = false;

  /// It may leave something in the session that the next user would meet: a setting, a temporary table, a
  /// lock.
  bool leaves_traces = false;

  /// It calls a function that is not known to be harmless, which may do the same.
  bool calls_functions = false;
};

StatementKind KindOf(std::string_view text);

}  // namespace dralo::database
