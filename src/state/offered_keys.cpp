#include "state/offered_keys.h"

#include <utility>
#include <vector>

#include "state/delete_request.h"
#include "state/posted_form.h"

namespace dralo::state {
namespace {

bool OffersLastPage(const settings::Settings& settings) {
  const bool is_counted = settings.CountRecords || settings.RecordCount >= 1;
  return is_counted && settings.DisplayNavBarFirstLastBtn && !settings.DisableNavBarLastPageBtn;
}

}  // namespace

RequestKeys OfferedKeys(const platform::Request& request, const settings::Settings& settings,
                        const platform::Site& site) {
  RequestKeys keys = KeysOfView(request, settings, site);
  if (!settings.Hardened) return keys;
  std::vector<std::string_view> missing = {key::kSql, key::kCountRecords};
  const auto offer = [&](std::string_view name, bool is_offered) {
    if (!is_offered) missing.push_back(name);
  };
  const bool has_bar = settings.bar.top || settings.bar.bottom;
  offer(key::kToExcel, settings.DisplayExcelIcon && has_bar);
  offer(key::kLast, has_bar && OffersLastPage(settings));
  offer(key::kFormAdd, settings.edit.add);
  offer(key::kFormEdit, OffersForm(settings));
  offer(key::kFormUpdate, settings.edit.add || settings.edit.update);
  offer(key::kEditPrimaryKey, OffersForm(settings));
  offer(key::kFormDelete, OffersDelete(settings));
  offer(key::kFormDeleteConfirmed, OffersDelete(settings));
  keys.Ignore(std::move(missing));
  return keys;
}

}  // namespace dralo::state
