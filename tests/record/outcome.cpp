#include "record/outcome.h"

#include "record/attempt.h"
#include "record/sorted_properties.h"

namespace dralo::record {

void NoteOutcome(Journal& journal, DbView& view) {
  for (const ViewProperty* property : SortedViewProperties()) {
    if (property->get == nullptr) continue;
    Attempt(journal, "get", [&] { journal.AddProperty(property->name, property->get(view)); });
  }
  journal.Add("mode", view.CurrentMode());
  for (const IndexedProperty* property : SortedIndexedProperties()) {
    for (std::int16_t index = -1; index < 18; ++index) {
      journal.AddValue(property->name, property->get(view, index));
    }
  }
  for (const std::string_view field : {"Country", "city", "ID", "a", ""}) {
    journal.Add("lookup", view.EditLookupAsString(field));
  }
  // Reading columns reports what is wrong with them.
  journal.AddProperty("errors", view.Get("ErrorMessage"));
}

}  // namespace dralo::record
