#pragma once

#include "html/html_writer.h"
#include "settings/settings.h"
#include "state/request_keys.h"

namespace dralo::state {

/// Writes the page's own request fields back as hidden inputs, so that they survive a click in the view:
/// those of the query string always, those of the posted form when PersistPageFormRequest is set. Fields of
/// this view are left out, and so are the commands of other views that save, delete or send the spreadsheet,
/// because they would be carried out again. Double quotes in names and values are replaced: neither ends its
/// attribute. A field belongs to this view when its first six characters are "Morvu" and the tag: tags of
/// another length than one character are not recognised.
///
/// A hardened page escapes names and values, and leaves out more: fields of this view in any letter case and
/// with a tag of any length, and of other views what their forms post, such as keys and inputs.
void PutPageFormFields(html::HtmlWriter& out, const settings::Settings& settings,
                       const platform::Request& request);

/// Writes the same fields as "&name=value" pairs for the query string of links.
void PutPageQueryFields(html::HtmlWriter& out, const settings::Settings& settings,
                        const platform::Request& request);

}  // namespace dralo::state
