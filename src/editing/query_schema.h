#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "dralo/field.h"
#include "dralo/recordset.h"
#include "dralo/type_code.h"
#include "settings/statement_parameters.h"
#include "state/render.h"

namespace dralo::editing {

struct SchemaField {
  std::string name = "";
  platform::TypeCode type{};
  bool is_nullable = false;
  platform::KeyComparison comparison = nullptr;
  bool is_iso_day = false;  ///< Its control holds a day in ISO form, because EditRules asks for it.
};

/// What the columns of a statement are, in their order.
struct QuerySchema {
  std::vector<SchemaField> fields = {};
  bool has_rows = false;

  /// Whether the key at position `key` (from 0) is numeric: the type of the column at the same position
  /// decides, so key columns are expected to lead the query in key order. Throws platform::Error when there
  /// are fewer columns.
  bool IsNumericAt(std::size_t key) const;

  /// The first column that bears the name, in any letter case; nullptr when there is none.
  const SchemaField* Find(std::string_view name) const;
};

/// The first rows of `sql` with its parameters, at most `rows`, on the view's connection. Throws
/// platform::Error when it does not open.
std::shared_ptr<platform::Recordset> OpenFirstRows(const state::Render& render, std::string_view sql,
                                                   settings::Parameters parameters = {},
                                                   std::int64_t rows = 1);

/// Opens `sql` on the view's connection to learn its columns. Throws platform::Error when it does not open.
QuerySchema ReadQuerySchema(const state::Render& render, std::string_view sql,
                            settings::Parameters parameters = {});

/// The statement up to its first WHERE; what follows, an ORDER BY included, is left out.
std::string_view WithoutWhere(std::string_view sql);

/// The names of EditPrimaryKeys without blanks around them, in their order; an item may be empty.
std::vector<std::string> KeyNames(const settings::Settings& settings);

}  // namespace dralo::editing
