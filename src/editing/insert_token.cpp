#include "editing/insert_token.h"

#include <array>
#include <cstdint>
#include <random>
#include <string_view>

#include "editing/derived_table.h"
#include "editing/query_schema.h"
#include "editing/shown_key.h"
#include "settings/open_connection.h"
#include "settings/statement_parameters.h"
#include "state/key_items.h"
#include "state/named_field.h"
#include "text/base64url.h"
#include "text/blanks.h"

namespace dralo::editing {
namespace {

using TokenBytes = std::array<std::uint8_t, 16>;

std::string_view TokenColumn(const settings::Settings& settings) {
  return text::TrimBlanks(settings.EditInsertToken);
}

std::string NewToken() {
  std::random_device random;
  TokenBytes bytes{};
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
  std::string token;
  text::PutBase64Url(bytes, token);
  return token;
}

bool IsToken(std::string_view text) {
  const auto bytes = text::ParseBase64Url(text);
  return bytes && bytes->size() == TokenBytes().size();
}

}  // namespace

bool HasInsertToken(const settings::Settings& settings) {
  return settings.Hardened && !TokenColumn(settings).empty();
}

std::string PostedInsertToken(const state::Render& render) {
  const auto posted = render.keys.PostedOnce(state::key::kInsertToken);
  return posted && IsToken(*posted) ? std::string(*posted) : NewToken();
}

std::string InsertTokenOfForm(const state::Render& render) {
  return render.outcome.ShowsPosted() ? PostedInsertToken(render) : NewToken();
}

void SetInsertToken(const state::Render& render, platform::Recordset& recordset, const std::string& token) {
  const std::string_view column = TokenColumn(render.settings);
  platform::Field* field = state::FindField(recordset, column);
  if (field == nullptr) throw state::UnknownField(column);
  field->SetValue(token);
}

std::optional<std::string> KeyOfAddedRecord(const state::Render& render, const QuerySchema& schema,
                                            const std::string& token) {
  const settings::Settings& settings = render.settings;
  const SchemaField* field = schema.Find(TokenColumn(settings));
  if (field == nullptr) throw state::UnknownField(TokenColumn(settings));
  platform::BoundStatement statement = DerivedTable(settings.EditSQL, settings::EditParameters(settings));
  const std::string column = settings::OpenConnection(settings)->QuoteExactName(field->name);
  statement.parameters.emplace_back(token);
  const auto record = OpenFirstRows(render, "SELECT * FROM " + statement.text + " WHERE " + column + " = ?",
                                    statement.parameters);
  if (record->Eof()) return std::nullopt;
  const auto key = KeyOf(render, *record);
  return key ? std::optional(state::KeyOfItems(*key)) : std::nullopt;
}

}  // namespace dralo::editing
