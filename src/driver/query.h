#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "dralo/recordset.h"
#include "settings/statement_parameters.h"
#include "state/render.h"

namespace dralo::driver {

/// Fills RecordCount when it is below 1: counted when `wanted`, else -1. A supplied recordset is never
/// counted.
void CountRecords(state::Render& render, bool wanted);

/// What is run for the view, without an order: `sql`, or the text of its command.
const std::string& StatementText(const state::Render& render);

/// `sql` with the order of the view behind it.
std::string OrderedSql(const state::ViewState& view, std::string sql);

/// Runs the view's command on its connection, or on its own when it has one. Without parameters of its own it
/// has those of `sql`.
void OpenCommand(platform::Recordset& recordset, const settings::Settings& settings,
                 platform::CursorType cursor, platform::LockType lock);

/// How many records are fetched for a page at most: up to its end and one more, which tells whether there is
/// a next page.
std::int64_t PageRecordLimit(const state::Render& render);

/// A closed recordset.
std::shared_ptr<platform::Recordset> NewRecordset(platform::Environment& environment);

/// The recordset to show: the supplied one, the command's, or that of `sql`, which has its order already, and
/// `parameters`, with at most `record_limit` records; 0 means all.
std::shared_ptr<platform::Recordset> OpenMainRecordset(const state::Render& render, const std::string& sql,
                                                       settings::Parameters parameters,
                                                       std::int64_t record_limit);

/// After the last-page button: cuts RecordCount to RecordsMaxLimit, so that the last page ends there.
void CutLastPageToLimit(state::Render& render);

/// Cuts the current record number to a known count and moves the recordset there, never beyond
/// RecordsMaxLimit.
void MoveToCurrentRecord(state::Render& render, platform::Recordset& recordset);

}  // namespace dralo::driver
