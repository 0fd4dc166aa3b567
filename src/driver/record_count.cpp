#include "driver/record_count.h"

#include "dralo/recordset.h"
#include "state/request_number.h"

namespace dralo::driver {

std::string RecordCountStatement(std::string_view query) {
  std::string statement = "SELECT COUNT(*) AS ANT FROM (";
  statement += query;
  statement += ") DRALOALIAS";
  return statement;
}

std::int32_t RecordCount(platform::Environment& environment, const settings::Settings& settings,
                         std::string_view query, settings::Parameters parameters) {
  const auto recordset = platform::Create<platform::Recordset>(environment, "ADODB.Recordset");
  recordset->SetMaxRecords(1);
  settings::OpenWithParameters(*recordset, settings, RecordCountStatement(query), parameters);
  const std::int32_t count = CountOf(environment, recordset->Fields()[0]->Value());
  recordset->Close();
  return count;
}

std::int32_t CountOf(const platform::Environment& environment, platform::VariantView value) {
  return state::ToInt32(environment.Regional(), value, "The record count");
}

}  // namespace dralo::driver
