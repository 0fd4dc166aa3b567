#include "editing/query_schema.h"

#include <algorithm>

#include "dralo/error.h"
#include "platform/field_kind.h"
#include "text/blanks.h"
#include "text/letter_case.h"
#include "text/list.h"

namespace dralo::editing {

bool QuerySchema::IsNumericAt(std::size_t key) const {
  if (key >= fields.size()) throw platform::Error("EditPrimaryKeys names more keys than there are columns");
  return platform::IsNumericFieldType(fields[key].type);
}

const SchemaField* QuerySchema::Find(std::string_view name) const {
  const auto found = std::ranges::find_if(
      fields, [&](const SchemaField& field) { return text::EqualIgnoringCase(field.name, name); });
  return found == fields.end() ? nullptr : &*found;
}

std::shared_ptr<platform::Recordset> OpenFirstRows(const state::Render& render, std::string_view sql,
                                                   settings::Parameters parameters, std::int64_t rows) {
  auto recordset = platform::Create<platform::Recordset>(render.environment, "ADODB.Recordset");
  recordset->SetMaxRecords(rows);
  recordset->SetCursorLocation(platform::CursorLocation::kClient);
  settings::OpenWithParameters(*recordset, render.settings, sql, parameters);
  return recordset;
}

QuerySchema ReadQuerySchema(const state::Render& render, std::string_view sql,
                            settings::Parameters parameters) {
  const auto recordset = OpenFirstRows(render, sql, parameters);
  QuerySchema schema;
  schema.has_rows = !recordset->Eof();
  for (const platform::Field* field : recordset->Fields()) {
    schema.fields.push_back({.name = std::string(field->Name()),
                             .type = field->Type(),
                             .is_nullable = (field->Attributes() & platform::kFieldIsNullable) != 0,
                             .comparison = field->Comparison()});
  }
  recordset->Close();
  return schema;
}

std::string_view WithoutWhere(std::string_view sql) {
  constexpr std::string_view kWhere = " WHERE ";
  for (std::size_t at = sql.find(' '); at != sql.npos; at = sql.find(' ', at + 1)) {
    if (text::EqualIgnoringCase(sql.substr(at, kWhere.size()), kWhere)) return sql.substr(0, at);
  }
  return sql;
}

std::vector<std::string> KeyNames(const settings::Settings& settings) {
  std::vector<std::string> names = text::Split(settings.EditPrimaryKeys);
  for (std::string& name : names) name = std::string(text::TrimBlanks(name));
  return names;
}

}  // namespace dralo::editing
