#pragma once

#include <libpq-fe.h>

#include <memory>

namespace dralo::database::postgresql {

/// The functions of PostgreSQL's client library that are used. The library is loaded when the first page
/// connects, so that a host without PostgreSQL does not need it.
struct Libpq {
  /// Throws platform::Error, which says what to install, when the library is missing or too old.
  static const Libpq& Get() {
    static const Libpq libpq = Load();
    return libpq;
  }

#define DRALO_LIBPQ_FUNCTIONS(USE) \
  USE(PQbackendPID)                \
  USE(PQclear)                     \
  USE(PQcmdTuples)                 \
  USE(PQconnectPoll)               \
  USE(PQconnectStartParams)        \
  USE(PQconsumeInput)              \
  USE(PQenterPipelineMode)         \
  USE(PQerrorMessage)              \
  USE(PQfinish)                    \
  USE(PQflush)                     \
  USE(PQfmod)                      \
  USE(PQfname)                     \
  USE(PQftable)                    \
  USE(PQftablecol)                 \
  USE(PQftype)                     \
  USE(PQgetResult)                 \
  USE(PQgetisnull)                 \
  USE(PQgetlength)                 \
  USE(PQgetvalue)                  \
  USE(PQisBusy)                    \
  USE(PQlibVersion)                \
  USE(PQnfields)                   \
  USE(PQntuples)                   \
  USE(PQparameterStatus)           \
  USE(PQpipelineSync)              \
  USE(PQresultErrorField)          \
  USE(PQresultErrorMessage)        \
  USE(PQresultStatus)              \
  USE(PQsendDescribePrepared)      \
  USE(PQsendPrepare)               \
  USE(PQsendQueryParams)           \
  USE(PQsendQueryPrepared)         \
  USE(PQsetNoticeReceiver)         \
  USE(PQsetSingleRowMode)          \
  USE(PQsetnonblocking)            \
  USE(PQsocket)                    \
  USE(PQstatus)                    \
  USE(PQtransactionStatus)
#define DRALO_DECLARE(name) decltype(&::name) name;  // NOLINT(bugprone-macro-parentheses): it is a name
  DRALO_LIBPQ_FUNCTIONS(DRALO_DECLARE)
#undef DRALO_DECLARE

  /// PQsetChunkedRowsMode of libpq 17 and later, else nullptr.
  int (*set_chunked_rows)(PGconn*, int);

 private:
  static Libpq Load();
};

struct ResultCleaner {
  void operator()(PGresult* result) const noexcept { Libpq::Get().PQclear(result); }
};
using Result = std::unique_ptr<PGresult, ResultCleaner>;

}  // namespace dralo::database::postgresql
