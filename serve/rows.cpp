#include "rows.h"

#include <type_traits>
#include <variant>

namespace serve {
namespace {

struct AsText {
  std::string operator()(dralo::Null) const { return {}; }
  std::string operator()(bool flag) const { return flag ? "1" : "0"; }
  std::string operator()(std::int64_t number) const { return std::to_string(number); }
  std::string operator()(double number) const { return std::to_string(static_cast<std::int64_t>(number)); }
  std::string operator()(dralo::DecimalView decimal) const { return std::string(decimal.text); }
  std::string operator()(const dralo::DateTime&) const { return {}; }
  std::string operator()(std::string_view text) const { return std::string(text); }
  /// MariaDB's catalogue has texts that it declares as binary.
  std::string operator()(dralo::BytesView bytes) const { return {bytes.data, bytes.data + bytes.size}; }
};

}  // namespace

Rows::Rows(dralo::Environment& environment, const std::string& connection_string)
    : environment_(environment), connection_(environment.MakeConnection()) {
  connection_->Open(connection_string);
}

std::vector<TextRow> Rows::Query(std::string_view sql, const std::vector<std::string>& parameters) {
  dralo::Command command;
  command.active_connection = connection_;
  command.command_text = sql;
  for (const std::string& parameter : parameters) command.parameters.emplace_back(parameter);
  const std::shared_ptr<dralo::Recordset> records = environment_.MakeRecordset();
  records->Open(command);
  std::vector<TextRow> rows;
  for (; !records->Eof(); records->MoveNext()) {
    TextRow& row = rows.emplace_back();
    for (dralo::Field* field : records->Fields()) row.push_back(std::visit(AsText{}, field->Value()));
  }
  records->Close();
  return rows;
}

}  // namespace serve
