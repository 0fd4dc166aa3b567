#include "editing/record_change.h"

#include <string>

#include "dralo/error.h"
#include "editing/query_schema.h"
#include "state/named_field.h"

namespace dralo::editing {
namespace {

using platform::NamedValue;

std::vector<NamedValue> ValuesOf(platform::Recordset& recordset) {
  std::vector<NamedValue> values;
  for (platform::Field* field : recordset.Fields()) {
    if (field->Type() == platform::TypeCode::kLongVarBinary) continue;
    values.push_back({std::string(field->Name()), platform::Own(field->Value())});
  }
  return values;
}

}  // namespace

RecordChange::RecordChange(state::Render& render, platform::Recordset& recordset, Kind kind)
    : render_(render), recordset_(recordset), kind_(kind) {
  if (kind != Kind::kInsert) old_ = ValuesOf(recordset);
}

std::string_view RecordChange::Operation() const {
  if (kind_ == Kind::kInsert) return "insert";
  return kind_ == Kind::kUpdate ? "update" : "delete";
}

std::vector<NamedValue> RecordChange::Key() {
  std::vector<NamedValue> key;
  if (kind_ == Kind::kInsert && !is_written_) return key;
  for (const std::string& name : KeyNames(render_.settings)) {
    platform::Field* field = state::FindField(recordset_, name);
    if (field != nullptr) key.push_back({name, platform::Own(field->Value())});
  }
  return key;
}

std::vector<NamedValue> RecordChange::Values() {
  return kind_ == Kind::kDelete ? std::vector<NamedValue>() : ValuesOf(recordset_);
}

void RecordChange::Set(std::string_view field, const platform::Variant& value) {
  RequireUnwritten();
  if (kind_ == Kind::kDelete) throw platform::Error("A record that is deleted cannot be changed");
  platform::Field* found = state::FindField(recordset_, field);
  if (found == nullptr) throw platform::Error("EditSQL has no field " + std::string(field));
  found->SetValue(value);
}

void RecordChange::Refuse(std::string_view field, std::string_view message) {
  RequireUnwritten();
  render_.outcome.field_notes.push_back({.field = std::string(field), .message = std::string(message)});
}

void RecordChange::RequireUnwritten() const {
  if (is_written_) throw platform::Error("The record is written already");
}

}  // namespace dralo::editing
