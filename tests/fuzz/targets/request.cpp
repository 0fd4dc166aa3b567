#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

#include "dralo/page.h"
#include "dralo/site.h"
#include "fuzz/fuzz_input.h"
#include "fuzz/page_structure.h"
#include "html/html_writer.h"
#include "settings/settings.h"
#include "state/key_items.h"
#include "state/page_fields.h"
#include "state/posted_form.h"
#include "state/request_keys.h"
#include "state/sender.h"

namespace dralo::fuzz {
namespace {

using state::PostedForm;
namespace key = state::key;

/// "NAME: VALUE" lines.
void AddHeaders(Page& page, std::string_view lines) {
  while (!lines.empty()) {
    const std::string_view line = lines.substr(0, lines.find('\n'));
    lines.remove_prefix(std::min(line.size() + 1, lines.size()));
    const std::size_t colon = line.find(": ");
    if (colon == line.npos) continue;
    page.request_headers.emplace_back(line.substr(0, colon), line.substr(colon + 2));
  }
}

void ReadAllKeys(const state::RequestKeys& keys) {
  for (const std::string_view name :
       {key::kMaxRecords, key::kCurrRecord, key::kSql, key::kFormDisplay, key::kPrimaryKey, key::kFormUpdate,
        key::kFormDelete, key::kToken, key::kOrderByFields}) {
    static_cast<void>(keys.Value(name));
    static_cast<void>(keys.PostedOnce(name));
    static_cast<void>(keys.WasPressed(name));
  }
}

/// Of a hardened view.
void TryTravellingFields(const Page& page, const settings::Settings& settings) {
  html::HtmlWriter form;
  state::PutPageFormFields(form, settings, page.GetRequest());
  const std::string inputs = form.Take();
  Require(inputs.size() <= state::kMostTravellingBytes, "what travels in the form has a bound");
  std::string structure = StructureOf(inputs);
  constexpr std::string_view kInput = "input type= name= value=\n";
  while (structure.starts_with(kInput)) structure.erase(0, kInput.size());
  Require(structure == "end of text", "what travels in the form consists of inputs");

  html::HtmlWriter query;
  state::PutPageQueryFields(query, settings, page.GetRequest(), 3);
  const std::string pairs = query.Take();
  Require(pairs.size() * 3 <= state::kMostTravellingBytes, "what travels in links has a bound");
  Require(pairs.find_first_of("<>\"' \r\n") == pairs.npos, "what travels in links is encoded");
}

void TryChange(const Page& page, const settings::Settings& settings, const platform::Site& site) {
  const PostedForm form = state::JudgePostedForm(page.GetRequest(), settings.Tag, site);
  const bool may_change = form == PostedForm::kTaken;
  Require(!may_change || page.method == "POST", "only posts change anything");
  Require(!may_change || state::SenderOf(page.GetRequest(), site.trusted_origins) == state::Sender::kOwn,
          "only forms of this site change anything");
  const state::RequestKeys keys = state::KeysOfView(page.GetRequest(), settings, site);
  ReadAllKeys(keys);
  Require(page.method == "POST" || !keys.Has(key::kFormDelete), "no command comes from a link");
}

}  // namespace

/// Method, query string, body and headers, these a line each; a "1" in front for a view with another tag.
void Try(std::string_view input) {
  Parts parts(input);
  settings::Settings settings;
  settings.Hardened = true;
  settings.PersistPageFormRequest = true;
  if (parts.Choose(2) == 1) settings.Tag = "k12";
  const std::string_view method = parts.Next();
  const std::string_view query = parts.Next();
  Page page("/p", query, parts.Next());
  page.method = method;
  AddHeaders(page, parts.Next());

  platform::Site site;
  site.trusted_origins = {"https://partner.example"};
  site.hosts = {"notes.example"};
  static_cast<void>(state::IsForHost(page.GetRequest(), site.hosts));
  TryChange(page, settings, site);
  TryTravellingFields(page, settings);
  ReadAllKeys({page.GetRequest(), settings.Tag});

  const auto items = state::KeyItems(query, 2);
  Require(!items || state::KeyItem((*items)[0]) + "," + state::KeyItem((*items)[1]) == query,
          "a key of two columns is written as it was read");
}

}  // namespace dralo::fuzz
