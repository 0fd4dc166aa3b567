#pragma once

#include <mysql.h>

namespace dralo::database::mariadb {

/// The functions of MariaDB's client library that are used. The library is loaded when the first page
/// connects, so that a host without MariaDB does not need it.
struct Library {
  /// Throws platform::Error, which says what to install, when the library is missing or too old.
  static const Library& Get();

#define DRALO_MARIADB_FUNCTIONS(USE) \
  USE(mariadb_connection)            \
  USE(mysql_affected_rows)           \
  USE(mysql_close)                   \
  USE(mysql_errno)                   \
  USE(mysql_error)                   \
  USE(mysql_fetch_fields)            \
  USE(mysql_fetch_lengths)           \
  USE(mysql_fetch_row)               \
  USE(mysql_free_result)             \
  USE(mysql_get_client_info)         \
  USE(mysql_get_socket)              \
  USE(mysql_get_ssl_cipher)          \
  USE(mysql_init)                    \
  USE(mysql_insert_id)               \
  USE(mysql_num_fields)              \
  USE(mysql_options)                 \
  USE(mysql_ping_cont)               \
  USE(mysql_ping_start)              \
  USE(mysql_real_connect_cont)       \
  USE(mysql_real_connect_start)      \
  USE(mysql_real_query_cont)         \
  USE(mysql_real_query_start)        \
  USE(mysql_reset_connection_cont)   \
  USE(mysql_reset_connection_start)  \
  USE(mysql_server_init)             \
  USE(mysql_sqlstate)                \
  USE(mysql_store_result_cont)       \
  USE(mysql_store_result_start)      \
  USE(mysql_stmt_affected_rows)      \
  USE(mysql_stmt_bind_param)         \
  USE(mysql_stmt_bind_result)        \
  USE(mysql_stmt_close)              \
  USE(mysql_stmt_errno)              \
  USE(mysql_stmt_error)              \
  USE(mysql_stmt_execute_cont)       \
  USE(mysql_stmt_execute_start)      \
  USE(mysql_stmt_fetch_column)       \
  USE(mysql_stmt_fetch_cont)         \
  USE(mysql_stmt_fetch_start)        \
  USE(mysql_stmt_field_count)        \
  USE(mysql_stmt_free_result_cont)   \
  USE(mysql_stmt_free_result_start)  \
  USE(mysql_stmt_init)               \
  USE(mysql_stmt_insert_id)          \
  USE(mysql_stmt_more_results)       \
  USE(mysql_stmt_next_result_cont)   \
  USE(mysql_stmt_next_result_start)  \
  USE(mysql_stmt_param_count)        \
  USE(mysql_stmt_prepare_cont)       \
  USE(mysql_stmt_prepare_start)      \
  USE(mysql_stmt_result_metadata)    \
  USE(mysql_stmt_sqlstate)
// NOLINTNEXTLINE(bugprone-macro-parentheses): a name that is declared has none.
#define DRALO_DECLARE(name) decltype(&::name) name;
  DRALO_MARIADB_FUNCTIONS(DRALO_DECLARE)
#undef DRALO_DECLARE
};

}  // namespace dralo::database::mariadb
