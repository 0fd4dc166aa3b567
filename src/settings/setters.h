#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "dralo/recordset.h"
#include "platform/environment.h"
#include "platform/page_connection.h"
#include "settings/settings.h"

/// The setters that do more than store their value. Effects happen at every assignment, equal value or not.
namespace dralo::settings {

/// Also becomes FormSQL and EditSQL where these are blank. A text that does not begin with "SELECT " becomes
/// a command.
void SetSql(Settings& settings, platform::Environment& environment, std::string value);

/// Also becomes EditSQL where that is blank or equals sql; the form view then no longer uses the grid's
/// formatting.
void SetFormSql(Settings& settings, std::string value);

/// Stored trimmed and in capitals; "ALL" appends " ADD UPDATE DELETE".
void SetEditOptions(Settings& settings, std::string_view value);

/// An empty text removes the column's rules.
void SetEditRules(Settings& settings, std::int16_t column, std::string_view rules);

/// Puts cellspacing="0" in front when the value has none; its width becomes Width when that is empty.
void SetTableTag(Settings& settings, std::string_view value);

/// Its width becomes Width when that is empty.
void SetGridTableTag(Settings& settings, std::string value);

/// Stored without quotes of either kind.
void SetWidth(Settings& settings, std::string_view value);

void SetDisplayType(Settings& settings, std::string value);

/// A bar at the top with a last-page button switches CountRecords on, even when the value also has the word
/// "none".
void SetDisplayNavBar(Settings& settings, std::string value);

void SetDisplayNavBarTextOptions(Settings& settings, std::string value);
void SetRecordsPerPageSelectPlacement(Settings& settings, std::string value);

/// A last-page button switches CountRecords on.
void SetDisplayNavBarFirstLastBtn(Settings& settings, bool value);

/// A value that is not below RecordsMaxLimit, or does not fit into 16 bits, is ignored.
void SetRecordsPerPage(Settings& settings, std::int64_t value);

/// Shows this recordset instead of a query, and switches CountRecords off. nullptr goes back to the query.
void SetAdoRecordset(Settings& settings, std::shared_ptr<platform::Recordset> value);

/// Runs this command instead of an SQL text. nullptr goes back to the SQL text.
void SetStoredProcCommand(Settings& settings, std::shared_ptr<platform::Command> value);

/// Makes a DBConnection of the view's own and opens it. Throws platform::Error when it cannot be opened; the
/// view then keeps the new, closed connection.
void SetConnectionString(Settings& settings, platform::Environment& environment, std::string value);

/// Shares the given connection; the view does not close it.
void SetDrConnection(Settings& settings, std::shared_ptr<platform::PageConnection> value);

/// The locale in which dates, numbers and booleans are written and read by objects made from now on; an empty
/// text means that of the process. Throws platform::Error, and changes nothing, when the locale is unknown.
void SetLocale(Settings& settings, platform::Environment& environment, std::string value);

/// Fills all language tables from the built-in language; an unknown code changes nothing.
void SetLanguage(Settings& settings, std::string value);

/// Each replaces one table by the items of a comma list. A list that is too short is reported in
/// ErrorMessage.
void SetLanguageString(Settings& settings, std::string_view list);
void SetLanguageBtnString(Settings& settings, std::string_view list);
void SetLangUpdString(Settings& settings, std::string_view list);

}  // namespace dralo::settings
