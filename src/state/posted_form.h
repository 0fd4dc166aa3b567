#pragma once

#include <string_view>

#include "dralo/request.h"
#include "dralo/site.h"
#include "settings/settings.h"
#include "state/request_keys.h"

namespace dralo::state {

/// What a hardened view may do with the form that was posted to it.
enum class PostedForm {
  kNone,           ///< Not a POST, or its body is no form. It changes nothing.
  kTaken,          ///< A change that it commands may be carried out.
  kForeign,        ///< Another site has sent it: nothing of what it says may come back in a form.
  kUnknownSender,  ///< Nothing tells who has sent it; a browser would have, so no other site is behind it.
  kRepeatedField,  ///< A field of the change came twice.
  kTooLarge,       ///< More than kMostFields or kMostBytes.
};

inline constexpr std::size_t kMostFields = 1'000;
inline constexpr std::size_t kMostBytes = std::size_t{8} * 1024 * 1024;

PostedForm JudgePostedForm(const platform::Request& request, std::string_view tag,
                           const platform::Site& site);

/// Whether the form commands a change of the views of the tag, whoever has sent it.
bool CommandsChange(const platform::Request& request, std::string_view tag);

/// The request keys of the view; on a hardened page keys of a change are read only where JudgePostedForm()
/// allows it.
RequestKeys KeysOfView(const platform::Request& request, const settings::Settings& settings,
                       const platform::Site& site);

}  // namespace dralo::state
