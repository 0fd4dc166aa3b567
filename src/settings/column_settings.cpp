#include "settings/column_settings.h"

#include <exception>
#include <string>
#include <vector>

#include "settings/own_errors.h"
#include "text/blanks.h"
#include "text/list.h"

namespace dralo::settings {
namespace {

/// The names of a store's parts in the trace of its setter; only two stores have a trace.
struct TraceNames {
  std::string_view index_list;
  std::string_view values;
};
constexpr TraceNames kFreeFormatNames = {"mvarGridFreeFormatCellIdx", "marrGridFreeCell"};
constexpr TraceNames kFormatFunctionNames = {"mvarGridFormatCellIdx", "marrGridFormatCell"};

/// Index in `values` of the column's setting; -1 when the column is not listed.
int SettingElement(const ColumnStore& store, int column) {
  return 2 * text::FindInList(store.index_list, column) - 1;
}

/// Gives every listed column its two elements, which a bulk text may have left out.
void FillUp(ColumnStore& store) {
  if (text::IsBlank(store.index_list)) return;
  const std::vector<std::string> columns = text::Split(store.index_list);
  for (std::size_t at = store.values.size(); at < 2 * columns.size(); ++at) {
    store.values.push_back(at % 2 == 0 ? columns[at / 2] : std::string());
  }
}

/// Appends the column to the list and makes room for its two elements. Returns the index of the first, and
/// appends to `trace` what was done.
std::size_t AppendColumn(ColumnStore& store, const std::string& column, const TraceNames& names,
                         std::string& trace) {
  if (text::IsBlank(store.index_list)) {
    store.index_list = column;
    store.values.assign(2, {});
    trace.append("Setting initial array. ").append(names.index_list).append("=");
    trace.append(store.index_list).append("<br>");
    return 0;
  }
  const std::size_t size = store.values.size();
  store.index_list.append(",").append(column);
  store.values.resize(size + 2);
  trace.append("Expanding array. currUBound=").append(std::to_string(static_cast<long>(size) - 1));
  trace.append(", ").append(names.index_list).append("=").append(store.index_list).append("<br>");
  return size;
}

/// Stores the text for the column; `trace` receives the steps done so far, also when one fails.
void Set(ColumnStore& store, int column, std::string_view text, const TraceNames& names, std::string& trace) {
  const int element = SettingElement(store, column);
  FillUp(store);
  if (element > 0) {
    store.values[static_cast<std::size_t>(element)] = text;
    return;
  }
  const std::string number = std::to_string(column);
  std::size_t at = AppendColumn(store, number, names, trace);
  for (const std::string_view value : {std::string_view(number), text}) {
    store.values[at] = value;
    trace.append("Setting ").append(names.values).append("(").append(std::to_string(at)).append(")=");
    trace.append(value).append("<br>");
    ++at;
  }
}

/// Set() for the two stores whose message shows the trace.
void SetTraced(Settings& settings, ColumnStore& store, int column, std::string_view text,
               const TraceNames& names, std::string_view property) {
  std::string trace;
  try {
    Set(store, column, text, names, trace);
  } catch (const std::exception& error) {
    OwnErrors(settings).Add(error.what(), std::string(property).append(". trace=").append(trace));
  }
}

/// Set() for the two stores of attributes, whose messages show no trace.
void SetPlain(Settings& settings, ColumnStore& store, int column, std::string_view text,
              std::string_view property) {
  Guarded(OwnErrors(settings), std::string(property).append(". "), [&] {
    std::string trace;
    Set(store, column, text, {}, trace);
  });
}

/// The column's setting; when it is missing, that is reported under `reader`.
std::string_view Read(ErrorReport errors, const ColumnStore& store, int column, std::string_view reader) {
  const auto setting = FindColumnSetting(store, column);
  if (!setting) ReportMissingSetting(errors, reader, store, column);
  return setting.value_or(std::string_view());
}

/// The same for properties: a column without a setting is no error.
std::string_view ReadListed(ErrorReport errors, const ColumnStore& store, int column,
                            std::string_view reader) {
  return HasColumnSetting(store, column) ? Read(errors, store, column, reader) : std::string_view();
}

}  // namespace

bool HasColumnSetting(const ColumnStore& store, int column) {
  return text::FindInList(store.index_list, column) > 0;
}

std::optional<std::string_view> FindColumnSetting(const ColumnStore& store, int column) {
  const int element = SettingElement(store, column);
  if (element < 0 || static_cast<std::size_t>(element) >= store.values.size()) return std::nullopt;
  return store.values[static_cast<std::size_t>(element)];
}

std::string ReaderInMessages(std::string_view reader, const ColumnStore& store, int column) {
  std::string name(reader);
  name.append(". index=").append(std::to_string(column));
  return name.append(", nArrIdx=").append(std::to_string(SettingElement(store, column)));
}

void ReportMissingSetting(ErrorReport errors, std::string_view reader, const ColumnStore& store, int column) {
  errors.Add("The column has no setting", ReaderInMessages(reader, store, column));
}

void SetGridFreeFormatCellByCol(Settings& settings, std::int16_t column, std::string_view text) {
  SetTraced(settings, settings.GridFreeFormatCellByCol, column, text, kFreeFormatNames,
            "GridFreeFormatCellByCol");
}

void SetGridFormatCellFunction(Settings& settings, std::int16_t column, std::string_view text) {
  ColumnStore& store = settings.GridFormatCellFunction;
  SetTraced(settings, store, column, HasColumnSetting(store, column) ? text : text::TrimBlanks(text),
            kFormatFunctionNames, "GridFormatCellFunction");
}

void SetGridColAttributes(Settings& settings, std::int16_t column, std::string_view text) {
  SetPlain(settings, settings.GridColAttributes, column, text, "GridColAttributes");
}

void SetGridColHeadAttributes(Settings& settings, std::int16_t column, std::string_view text) {
  SetPlain(settings, settings.GridColHeadAttributes, column, text, "GridColHeadAttributes");
}

void SetGridFreeFormatCell(Settings& settings, std::string_view text) {
  ColumnStore& store = settings.GridFreeFormatCellByCol;
  store.values.clear();
  if (text.empty()) return;
  store.values = text::Split(text, settings.GridFreeFormatCellColumnDelimiter);
  store.index_list = store.values[0];
  for (std::size_t at = 2; at < store.values.size(); at += 2) {
    store.index_list.append(",").append(store.values[at]);
  }
}

std::string_view GridFreeFormatCellByCol(const Settings& settings, int column, ErrorReport errors) {
  return ReadListed(errors, settings.GridFreeFormatCellByCol, column, "GetFreeCellStringRaw");
}

std::string_view GridFormatCellFunction(const Settings& settings, int column, ErrorReport errors) {
  return ReadListed(errors, settings.GridFormatCellFunction, column, "GetFormatCellStringRaw");
}

std::string_view GridColAttributes(const Settings& settings, int column, ErrorReport errors) {
  return ReadListed(errors, settings.GridColAttributes, column, "GetGridColAttributes");
}

std::string_view GridColHeadAttributes(const Settings& settings, int column, ErrorReport errors) {
  return ReadListed(errors, settings.GridColHeadAttributes, column, "GetGridColHeadAttributes");
}

std::string_view GetFreeCellStringRaw(const Settings& settings, int column, ErrorReport errors) {
  return Read(errors, settings.GridFreeFormatCellByCol, column, "GetFreeCellStringRaw");
}

std::string_view GetFormatCellStringRaw(const Settings& settings, int column, ErrorReport errors) {
  return Read(errors, settings.GridFormatCellFunction, column, "GetFormatCellStringRaw");
}

}  // namespace dralo::settings
