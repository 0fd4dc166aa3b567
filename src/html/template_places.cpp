#include "html/template_places.h"

#include <cstddef>
#include <optional>

#include "dralo/error.h"

namespace dralo::html {
namespace {

constexpr const char* kUnclear = "A template has a value where browsers could read it in more than one way";

}  // namespace

std::vector<ValuePlace> FindPlaces(std::span<const std::string_view> literals, TemplateStart start) {
  TemplateScanner scanner(start);
  std::vector<ValuePlace> places;
  for (std::size_t at = 0; at < literals.size(); ++at) {
    scanner.TakeLiteral(literals[at]);
    if (at + 1 == literals.size()) break;
    const std::optional<ValuePlace> place = scanner.TakeValue(literals[at + 1], at + 2 == literals.size());
    if (!place) throw platform::Error(kUnclear);
    places.push_back(*place);
  }
  if (!scanner.IsClear()) throw platform::Error(kUnclear);
  if (!scanner.EndsAsItBegan())
    throw platform::Error("A template ends inside of a tag, a comment or a script");
  return places;
}

}  // namespace dralo::html
