#include "state/request_state.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "state/request_number.h"
#include "text/blanks.h"
#include "text/decimal.h"
#include "text/letter_case.h"
#include "text/list.h"

namespace dralo::state {
namespace {

constexpr std::int16_t kDefaultRecordsPerPage = 20;

/// The request key as messages name it.
std::string KeyName(const RequestKeys& keys, std::string_view name) {
  const html::Joined joined = keys(name);
  return std::string(joined.first).append(joined.second);
}

std::int32_t Int32Value(const Render& render, std::string_view name) {
  return ToInt32(render.Regional(), render.keys.Value(name), KeyName(render.keys, name));
}

/// `number` plus `records`, kept within 32 bits.
std::int32_t Moved(std::int32_t number, std::int32_t records) {
  using Limits = std::numeric_limits<std::int32_t>;
  const std::int64_t moved = std::int64_t{number} + records;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(moved, Limits::min(), Limits::max()));
}

/// The page size that was asked for, when the page's select offers it.
std::optional<std::int16_t> OfferedPageSize(const settings::Settings& settings, std::string_view asked) {
  if (!settings.DisplayRecordsPerPageSelect || asked.empty()) return std::nullopt;
  const std::string& own = settings.RecordsPerPageOptions;
  for (const std::string& option :
       text::Split(text::IsBlank(own) ? settings::Settings().RecordsPerPageOptions : own)) {
    if (text::TrimBlanks(option) == asked) return text::ParseNumber<std::int16_t>(asked);
  }
  return std::nullopt;
}

void ReadOrder(Render& render) {
  const bool has_fields = render.keys.Has(key::kOrderByFields);
  if (has_fields) render.view.order_by = render.keys.Value(key::kOrderByFields);
  if (render.keys.Has(key::kOrderByDesc)) {
    render.view.is_descending = true;
  } else if (has_fields) {
    // A click on a header leaves the direction out to ask for ascending order, even when the page has preset
    // descending.
    render.view.is_descending = false;
  }
}

}  // namespace

std::int16_t RequestedPageSize(const settings::Settings& settings, const RequestKeys& keys,
                               const platform::Formatting& formatting) {
  std::int16_t page_size = settings.RecordsPerPage;
  if (settings.Hardened) {
    page_size = OfferedPageSize(settings, keys.Value(key::kMaxRecords)).value_or(page_size);
  } else if (keys.Has(key::kMaxRecords)) {
    page_size = ToInt16(formatting, keys.Value(key::kMaxRecords), KeyName(keys, key::kMaxRecords));
  }
  return page_size < 1 ? kDefaultRecordsPerPage : page_size;
}

bool ShowsRecordsPerPageSelect(const Render& render) {
  const settings::Settings& settings = render.settings;
  if (!settings.DisplayRecordsPerPageSelect || (IsForm(render.view.mode) && render.view.records_on_page < 2))
    return false;
  return settings.page_size_select.top || settings.page_size_select.bottom;
}

void ReadRequestState(Render& render) {
  render.view.page_size = RequestedPageSize(render.settings, render.keys, render.Regional());
  if (render.keys.Has(key::kCountRecords)) render.view.is_counted = true;
  render.view.current_record =
      render.keys.Has(key::kCurrRecord) ? std::max(Int32Value(render, key::kCurrRecord), 1) : 1;
  if (render.keys.Has(key::kSql)) render.view.sql = render.keys.Value(key::kSql);
  render.view.form_display = render.keys.Value(key::kFormDisplay);
  if (!render.settings.Hardened) return ReadOrder(render);
  const bool is_form = text::EqualIgnoringCase(render.view.form_display, kOneRecord);
  render.view.form_display = is_form ? kOneRecord : "";
}

std::int32_t FirstOfLastPage(std::int32_t records, std::int32_t page_size) {
  const std::int32_t remainder = records % page_size;
  return std::max(records - (remainder == 0 ? page_size : remainder) + 1, 1);
}

void ApplyPagingButtons(Render& render) {
  const RequestKeys& keys = render.keys;
  const std::int32_t step = IsForm(render.view.mode) ? 1 : render.view.page_size;
  std::int32_t& current = render.view.current_record;
  if (keys.WasPressed(key::kNext)) {
    current = Moved(current, step);
  } else if (keys.WasPressed(key::kPrevious)) {
    current = Moved(current, -step);
  } else if (keys.WasPressed(key::kFirst)) {
    current = 1;
  } else if (keys.WasPressed(key::kLast) && render.outcome.record_count >= 0) {
    current = FirstOfLastPage(render.outcome.record_count, step);
  }
  current = std::max(current, 1);
  render.view.bookmark = keys.Has(key::kBookmark) ? Int32Value(render, key::kBookmark) : current;
}

}  // namespace dralo::state
