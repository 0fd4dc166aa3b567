#include "editing/query_schema.h"

#include <algorithm>

#include "platform/error.h"
#include "shell/open_connection.h"
#include "util/field_type.h"
#include "util/letter_case.h"
#include "util/list.h"

namespace dralo::editing {

bool QuerySchema::IsNumericAt(std::size_t key) const {
  if (key >= fields.size()) throw platform::Error("EditPrimaryKeys names more keys than there are columns");
  return util::IsNumericFieldType(fields[key].type);
}

const SchemaField* QuerySchema::Find(std::string_view name) const {
  const auto found = std::ranges::find_if(
      fields, [&](const SchemaField& field) { return util::EqualIgnoringCase(field.name, name); });
  return found == fields.end() ? nullptr : &*found;
}

std::shared_ptr<platform::Recordset> OpenFirstRow(const shell::Render& render, std::string_view sql) {
  auto recordset = platform::Create<platform::Recordset>(render.environment, "ADODB.Recordset");
  recordset->SetMaxRecords(1);
  recordset->SetCursorLocation(platform::CursorLocation::kClient);
  recordset->Open(sql, shell::OpenConnection(render.settings), platform::CursorType::kForwardOnly,
                  platform::LockType::kReadOnly);
  return recordset;
}

QuerySchema ReadQuerySchema(const shell::Render& render, std::string_view sql) {
  const auto recordset = OpenFirstRow(render, sql);
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
    if (util::EqualIgnoringCase(sql.substr(at, kWhere.size()), kWhere)) return sql.substr(0, at);
  }
  return sql;
}

std::vector<std::string> KeyNames(const shell::Settings& settings) {
  std::vector<std::string> names = util::Split(settings.EditPrimaryKeys);
  for (std::string& name : names) name = std::string(util::TrimBlanks(name));
  return names;
}

}  // namespace dralo::editing
