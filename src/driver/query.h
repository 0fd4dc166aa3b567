#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "dralo/recordset.h"
#include "settings/statement_parameters.h"
#include "state/render.h"

namespace dralo::driver {

/// Fills RecordCount when it is below 1: with the number of records when `wanted`, else with -1. A supplied
/// recordset is never counted.
void CountRecords(state::Render& render, bool wanted);

/// What is run for the view, without an order: `sql`, or the text of its command.
const std::string& StatementText(const state::Render& render);

/// `sql` followed by the order of the view.
std::string OrderedSql(const state::ViewState& view, std::string sql);

/// Runs the view's command: on the command's own connection when it has one, else on the view's. A command
/// without parameters runs with those of `sql`.
void OpenCommand(platform::Recordset& recordset, const settings::Settings& settings,
                 platform::CursorType cursor, platform::LockType lock);

/// The most records that are fetched for a page: up to its end and, unless they are counted, one more, which
/// tells whether there is a next page.
std::int64_t PageRecordLimit(const state::Render& render, bool is_counted);

/// A closed recordset.
std::shared_ptr<platform::Recordset> NewRecordset(platform::Environment& environment);

/// The recordset to show: the supplied one, that of the command, or that of `sql`, which already contains its
/// order, with `parameters` and at most `record_limit` records; 0 means all.
std::shared_ptr<platform::Recordset> OpenMainRecordset(const state::Render& render, const std::string& sql,
                                                       settings::Parameters parameters,
                                                       std::int64_t record_limit);

/// After the last-page button: cuts RecordCount to RecordsMaxLimit, so that the last page ends there.
void CutLastPageToLimit(state::Render& render);

/// Limits the current record number to a known count and moves the recordset there, never beyond
/// RecordsMaxLimit.
void MoveToCurrentRecord(state::Render& render, platform::Recordset& recordset);

}  // namespace dralo::driver
