#pragma once

#include <cstddef>

#include "html/html_writer.h"
#include "settings/settings.h"
#include "state/request_keys.h"

namespace dralo::state {

/// Writes the page's own request fields back as hidden inputs, so that they survive a click in the view:
/// those of the query string always, those of the posted form when PersistPageFormRequest is set. Fields of
/// this view are left out. So are the commands of other views that save, delete or send the spreadsheet,
/// because they would be carried out again. Double quotes in names and values are replaced, so that they do
/// not end the attribute. A field belongs to this view when its first six characters are "Morvu" and the tag;
/// with a tag that is not one character long none is recognised.
///
/// A hardened page escapes names and values, and leaves out more: fields of this view in any letter case and
/// with a tag of any length, and of other views what their forms post, such as keys and inputs.
/// It leaves out, too, those whose name is longer than kMostNameBytes, and those that do not fit into what is
/// left of kMostTravellingBytes, as they are written: a request must not become a page many times its size.
void PutPageFormFields(html::HtmlWriter& out, const settings::Settings& settings,
                       const platform::Request& request);

/// Writes the same fields as "&name=value" pairs for the query string of links. On a hardened page there must
/// be room for them in all `links` that repeat them.
void PutPageQueryFields(html::HtmlWriter& out, const settings::Settings& settings,
                        const platform::Request& request, std::size_t links = 1);

inline constexpr std::size_t kMostNameBytes = 64;
inline constexpr std::size_t kMostTravellingBytes = std::size_t{64} * 1024;

}  // namespace dralo::state
