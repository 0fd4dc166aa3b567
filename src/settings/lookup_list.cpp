#include "settings/lookup_list.h"

#include <utility>

#include "text/letter_case.h"

namespace dralo::settings {
namespace {

std::string TextOf(const LookupList::Lookup& lookup) {
  std::string text(lookup.field_name);
  for (const std::string_view item :
       {lookup.table, lookup.link_field, lookup.display_field, lookup.order_by}) {
    text.append(",").append(item);
  }
  return text.append(lookup.allow_nulls ? ",1" : ",0");
}

}  // namespace

void LookupList::Add(const Lookup& lookup) {
  std::string text = TextOf(lookup);
  const std::size_t position = entries_.size();
  entries_.resize(position + 2);
  entries_[position] = std::move(text);
}

std::string_view LookupList::Find(std::string_view field_name) const {
  for (const std::string& entry : entries_) {
    const std::size_t comma = entry.find(',');
    if (comma == entry.npos) continue;
    if (text::EqualIgnoringCase(std::string_view(entry).substr(0, comma), field_name)) return entry;
  }
  return {};
}

}  // namespace dralo::settings
