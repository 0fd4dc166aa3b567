#include "table_plan.h"

#include <algorithm>
#include <optional>
#include <set>

#include "text.h"

namespace serve {
namespace {

/// Stands around the names of fields in templates, so it cannot be part of a name.
constexpr char kDelimiter = '#';

/// A table of more columns is shown without references: databases limit the columns of a result.
constexpr std::size_t kMostColumnsWithReferences = 500;

bool IsText(const Column& column) {
  const std::string type = Lower(column.type);
  for (const std::string_view word : {"char", "text", "clob", "name"}) {
    if (type.find(word) != type.npos) return true;
  }
  return false;
}

/// Whether a list can hold the name: its items have no commas, and no blanks at their ends.
bool IsListable(std::string_view name) {
  return name.find(',') == name.npos && !name.starts_with(' ') && !name.ends_with(' ');
}

const Column* SingleKey(const std::vector<Column>& columns) {
  const Column* key = nullptr;
  for (const Column& column : columns) {
    if (column.key_position == 0) continue;
    if (key != nullptr) return nullptr;
    key = &column;
  }
  return key;
}

/// The column by which people recognise a record: one that is called so, else the first text column that is
/// neither a key nor a reference.
const Column* ShownColumn(const std::vector<Column>& columns) {
  const auto is_told = [](const Column& column) {
    return IsText(column) && column.key_position == 0 && !column.reference;
  };
  for (const std::string_view name : {"name", "title", "label"}) {
    const auto found = std::ranges::find_if(
        columns, [&](const Column& column) { return is_told(column) && Lower(column.name) == name; });
    if (found != columns.end()) return &*found;
  }
  const auto found = std::ranges::find_if(columns, is_told);
  return found == columns.end() ? nullptr : &*found;
}

/// Builds a plan, column by column.
class Planner {
 public:
  Planner(const Table& table, std::vector<Column> columns, const ColumnsOf& columns_of,
          const Catalogue& catalogue)
      : columns_(std::move(columns)), columns_of_(columns_of), catalogue_(catalogue) {
    plan_.table = table;
    from_ = Quoted(table.name);
  }

  TablePlan Plan() {
    PutKeysFirst();
    const bool has_references = columns_.size() <= kMostColumnsWithReferences;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (!has_references) columns_[i].reference.reset();
      AddColumn(columns_[i], static_cast<int>(i) + 1);
    }
    AddHiddenFields();
    plan_.grid_sql = "SELECT " + grid_ + " FROM " + from_ + " t";
    plan_.edit_sql = "SELECT " + edit_ + " FROM " + from_;
    plan_.delete_sql = "DELETE FROM " + from_;
    return std::move(plan_);
  }

 private:
  struct HiddenField {
    int of_column;
    std::string column;
    TableName table;
  };

  std::string Quoted(const auto& name) const { return serve::Quoted(catalogue_, name); }

  /// The view expects the keys at the beginning of a query. A field without a name can have no input in a
  /// form.
  void PutKeysFirst() {
    const auto rank = [](const Column& column) {
      return column.key_position == 0 ? 1000000 : column.key_position;
    };
    std::ranges::stable_sort(columns_, {}, rank);
    const auto fits = [](const Column& column) {
      return !column.name.empty() && (column.key_position == 0 || IsListable(column.name));
    };
    if (!std::ranges::all_of(columns_, fits)) return;
    std::string order;
    for (const Column& column : columns_) {
      if (column.key_position == 0) break;
      const std::string_view comma = order.empty() ? "" : ",";
      order.append(comma).append(std::to_string(column.key_position));
      plan_.keys.append(comma).append(column.name);
      plan_.new_keys.append(comma).append(column.is_automatic ? "autoincrement" : "");
      if (column.is_automatic) plan_.read_only.append(plan_.read_only.empty() ? "" : ",").append(column.name);
    }
    plan_.order = order;
  }

  void AddColumn(const Column& column, int number) {
    const std::string name = Quoted(column.name);
    used_.insert(Lower(column.name));
    grid_.append(grid_.empty() ? "" : ", ");
    if (!column.is_generated) edit_.append(edit_.empty() ? "" : ", ").append(name);
    if (column.reference && column.key_position == 0 && AddReference(column, number)) return;
    grid_.append("t.").append(name);
  }

  /// Adds the column as the text of the record that it refers to. False when that is not possible.
  bool AddReference(const Column& column, int number) {
    const TableName& other = column.reference->table;
    const std::vector<Column> others = columns_of_(other);
    const Column* const key = SingleKey(others);
    const Column* const shown = ShownColumn(others);
    if (key == nullptr || shown == nullptr) return false;
    const std::string& to = column.reference->column.empty() ? key->name : column.reference->column;
    const std::string value = "t." + Quoted(column.name);
    const std::string record = " FROM " + Quoted(other) + " r WHERE r." + Quoted(to) + " = " + value;
    grid_.append("(");
    // SQLite gives the column the declared type of the last part.
    if (!catalogue_.EnforcesReferences())
      grid_.append("SELECT CAST(" + value + " AS TEXT) WHERE NOT EXISTS (SELECT 1" + record + ") UNION ALL ");
    grid_.append("SELECT r.")
        .append(Quoted(shown->name))
        .append(record)
        .append(") AS ")
        .append(Quoted(column.name));
    if (Lower(to) == Lower(key->name) && column.name.find(kDelimiter) == std::string::npos)
      hidden_fields_.push_back({number, column.name, other});
    const Lookup lookup = {column.name, Quoted(other), Quoted(to), Quoted(shown->name), true};
    if (IsListable(lookup.field + lookup.table + lookup.value + lookup.shown))
      plan_.lookups.push_back(lookup);
    return true;
  }

  /// Adds the values of the references themselves, for the links of their texts.
  void AddHiddenFields() {
    int number = static_cast<int>(columns_.size());
    for (const HiddenField& field : hidden_fields_) {
      std::string name = "key_" + std::to_string(field.of_column);
      while (!used_.insert(Lower(name)).second) name += '_';
      grid_.append(", t.").append(Quoted(field.column)).append(" AS ").append(Quoted(name));
      plan_.hidden.append(plan_.hidden.empty() ? "" : ",").append(std::to_string(++number));
      plan_.templates.emplace_back(field.of_column, "<a href=\"" + AddressOf(field.table) +
                                                        "?Morvu1FormDisplay=formOneRec&Morvu1PK=#" + name +
                                                        "#\">#" + field.column + "#</a>");
    }
  }

  TablePlan plan_;
  std::vector<Column> columns_;
  const ColumnsOf& columns_of_;
  const Catalogue& catalogue_;
  std::string from_;
  std::string grid_;
  std::string edit_;
  std::set<std::string> used_;
  std::vector<HiddenField> hidden_fields_;
};

}  // namespace

TablePlan MakePlan(const Table& table, std::vector<Column> columns, const ColumnsOf& columns_of,
                   const Catalogue& catalogue) {
  return Planner(table, std::move(columns), columns_of, catalogue).Plan();
}

std::string AddressOf(const TableName& table) {
  const std::string schema = table.schema.empty() ? "" : PathSegment(table.schema) + "/";
  return "/table/" + schema + PathSegment(table.name);
}

}  // namespace serve
