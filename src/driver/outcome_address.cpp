#include "driver/outcome_address.h"

#include <array>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "driver/requested_order.h"
#include "editing/outcome.h"
#include "editing/query_schema.h"
#include "editing/shown_key.h"
#include "html/html_writer.h"
#include "settings/language.h"
#include "settings/statement_parameters.h"
#include "state/error_log.h"
#include "state/key_items.h"
#include "state/page_fields.h"
#include "state/primary_key_value_list.h"
#include "state/request_state.h"
#include "text/ascii.h"

namespace dralo::driver {
namespace {

namespace key = state::key;
using html::Encoded;
using html::Verbatim;

struct DoneLetter {
  std::string_view letter;
  settings::UpdateSlot text;
};
constexpr std::array<DoneLetter, 3> kDoneLetters = {
    {{"u", settings::kUpdated}, {"i", settings::kInserted}, {"d", settings::kDeleted}}};

std::string_view LetterOf(const state::Render& render) {
  if (render.outcome.change == state::Change::kDeleted) return "d";
  return render.keys.Has(key::kFormInsert) ? "i" : "u";
}

/// Whether the record can be shown after the save, which may have taken it out of the list's statement or of
/// the view's.
bool ShowsRecord(const state::Render& render, std::string_view record) {
  const settings::Settings& settings = render.settings;
  if (!state::CanAddressRecords(render, settings.FormSQL)) return false;
  try {
    const auto key = state::KeyItems(record, editing::KeyNames(settings).size());
    return !editing::OpenRecordOfKey(render, settings.FormSQL, settings::FormParameters(settings), key, true)
                ->Eof();
  } catch (const std::exception&) {
    return false;
  }
}

/// The page's own path, encoded for a header. If it began with two slashes, it would name another host.
std::string EncodedPath(std::string_view path) {
  constexpr std::string_view kKept = "/-._~!$&'()*+,;=:@%";
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  while (path.starts_with("//")) path.remove_prefix(1);
  std::string encoded;
  for (const char c : path) {
    if (text::IsLetterOrDigit(c) || kKept.find(c) != kKept.npos) {
      encoded += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      encoded.append("%").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 0xF]);
    }
  }
  return encoded;
}

std::string OutcomeAddress(const state::Render& render) {
  const state::RequestKeys& keys = render.keys;
  const state::ViewState& view = render.view;
  const std::optional<std::string>& record = render.outcome.saved_key;
  const std::string path = EncodedPath(render.script_name);
  html::HtmlWriter address;
  address.Put("{}?{}={}", Verbatim{path}, keys(key::kCurrRecord), view.current_record)
      .Put("&{}={}", keys(key::kMaxRecords), view.page_size)
      .PutIf(view.is_counted, "&{}=on", keys(key::kCountRecords))
      .PutIf(!view.order_by.empty(), "&{}={}", keys(key::kOrderByFields), Encoded{view.order_by})
      .PutIf(view.is_descending, "&{}=True", keys(key::kOrderByDesc));
  state::PutPageQueryFields(address, render.settings, keys.GetRequest());
  if (record && ShowsRecord(render, *record)) {
    address.Put("&{}={}", keys(key::kFormDisplay), Verbatim{state::kOneRecord})
        .Put("&{}={}", keys(key::kPrimaryKey), Encoded{*record});
  }
  address.Put("&{}={}", keys(key::kDone), Verbatim{LetterOf(render)});
  return address.Take();
}

/// The view that the request asks for; nothing when the request cannot be read.
std::optional<state::ViewState> AskedView(state::Render& render) {
  const state::ViewState before = render.view;
  try {
    state::ReadRequestState(render);
    TakeRequestedOrder(render);
  } catch (const std::exception&) {
    render.view = before;
    return std::nullopt;
  }
  return std::exchange(render.view, before);
}

/// Whether the visitor came from a page of this site; also when the browser does not tell.
bool ComesFromHere(const platform::Request& request) {
  const std::vector<std::string> values = request.HeaderValues("Sec-Fetch-Site");
  return values.empty() || (values.size() == 1 && values.front() == "same-origin");
}

}  // namespace

void RedirectToOutcome(state::Render& render, platform::Response& response) {
  const state::Outcome& outcome = render.outcome;
  if (outcome.change == state::Change::kNone || !outcome.errors.empty()) return;
  if (!response.HasUnsentHeaders()) return;
  auto asked = AskedView(render);
  if (!asked) return;
  const state::ViewState before = std::exchange(render.view, *std::move(asked));
  const std::string address = OutcomeAddress(render);
  render.view = before;
  if (address.size() > kMostAddressBytes) return;
  state::LogLines(render.environment, outcome.error_detail);
  response.Redirect(address);
}

void TakeOutcomeOfAddress(state::Render& render) {
  if (!render.settings.Hardened || render.outcome.reported_change != nullptr) return;
  if (!ComesFromHere(render.keys.GetRequest())) return;
  const std::string_view posted = render.keys.Value(key::kDone);
  for (const auto& [letter, text] : kDoneLetters) {
    if (letter == posted) editing::SetOutcome(render, text);
  }
}

}  // namespace dralo::driver
