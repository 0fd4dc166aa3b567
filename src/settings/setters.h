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

/// Also becomes EditSQL where that is blank or equals sql; switches the grid's formatting off in the form
/// view.
void SetFormSql(Settings& settings, std::string value);

/// Stored in capitals and trimmed; "ALL" brings " ADD UPDATE DELETE" with it.
void SetEditOptions(Settings& settings, std::string_view value);

/// An empty text takes the column's rules away.
void SetEditRules(Settings& settings, std::int16_t column, std::string_view rules);

/// Gets cellspacing="0" in front when it has none; its width becomes Width when that is empty.
void SetTableTag(Settings& settings, std::string_view value);

/// Its width becomes Width when that is empty.
void SetGridTableTag(Settings& settings, std::string value);

/// Stored without quotes of either kind.
void SetWidth(Settings& settings, std::string_view value);

void SetDisplayType(Settings& settings, std::string value);

/// A bar at the top with a last-page button switches CountRecords on, even next to the word "none".
void SetDisplayNavBar(Settings& settings, std::string value);

void SetDisplayNavBarTextOptions(Settings& settings, std::string value);
void SetRecordsPerPageSelectPlacement(Settings& settings, std::string value);

/// A last-page button switches CountRecords on.
void SetDisplayNavBarFirstLastBtn(Settings& settings, bool value);

/// Ignored unless it is below RecordsMaxLimit and fits 16 bits.
void SetRecordsPerPage(Settings& settings, std::int64_t value);

/// Shows this recordset instead of a query; switches CountRecords off. None goes back to the query.
void SetAdoRecordset(Settings& settings, std::shared_ptr<platform::Recordset> value);

/// Runs this command instead of an SQL text. None goes back to the SQL text.
void SetStoredProcCommand(Settings& settings, std::shared_ptr<platform::Command> value);

/// Makes a DBConnection of the view's own and opens it. Throws platform::Error when it cannot be opened; the
/// view then keeps the new, closed connection.
void SetConnectionString(Settings& settings, platform::Environment& environment, std::string value);

/// Shares the given connection; the view does not close it.
void SetDrConnection(Settings& settings, std::shared_ptr<platform::PageConnection> value);

/// Dates, numbers and booleans are written and read as in that locale, by objects made from now on; an empty
/// text is the process's own. Throws platform::Error, and changes nothing, when it is unknown.
void SetLocale(Settings& settings, platform::Environment& environment, std::string value);

/// Fills all language tables from the built-in language; an unknown code changes nothing.
void SetLanguage(Settings& settings, std::string value);

/// Replace one table by the items of a comma list. A list that is too short is reported in ErrorMessage.
void SetLanguageString(Settings& settings, std::string_view list);
void SetLanguageBtnString(Settings& settings, std::string_view list);
void SetLangUpdString(Settings& settings, std::string_view list);

}  // namespace dralo::settings
