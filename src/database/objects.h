#pragma once

#include <chrono>
#include <cstddef>
#include <memory>

#include "database/provider.h"
#include "dralo/connection.h"
#include "dralo/recordset.h"
#include "platform/formatting.h"

namespace dralo::database {

/// A closed connection to the databases of these providers. `formatting` recognises dates that are assigned
/// to fields in regional form; without it only ISO forms are recognised. It must outlive the object and all
/// recordsets made by it.
std::shared_ptr<platform::Connection> MakeConnection(Providers providers,
                                                     const platform::Formatting* formatting = nullptr);

/// A closed recordset; `formatting` as above.
std::shared_ptr<platform::Recordset> MakeRecordset(const platform::Formatting* formatting = nullptr);

/// Closes the connections that are kept for reuse, not those in use. For the end of the process or of the
/// host's module.
void CloseIdleConnections();

/// Limits how many connections this process keeps for reuse, and how long; others are closed. An `idle_time`
/// of 0 sets no limit.
void LimitIdleConnections(std::size_t number, std::chrono::seconds idle_time);

/// Closes the connections that have been kept for longer than that. Every use of a connection does so too.
void CloseStaleConnections() noexcept;

}  // namespace dralo::database
