#include "state/page_fields.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "text/ascii.h"
#include "text/characters.h"
#include "text/letter_case.h"

namespace dralo::state {
namespace {

/// So many characters of a name are compared with the view's prefix, whatever the length of its tag.
constexpr std::size_t kComparedCharacters = 6;

bool BelongsToView(std::string_view name, std::string_view tag) {
  const std::string_view start = name.substr(0, text::BytesOfCharacters(name, kComparedCharacters));
  return start.starts_with(key::kPrefix) && start.substr(key::kPrefix.size()) == tag;
}

bool EndsWith(std::string_view name, std::string_view end) {
  return name.size() >= end.size() && text::EqualIgnoringCase(name.substr(name.size() - end.size()), end);
}

/// The name of the image button when the field tells where it was clicked; else the name itself.
std::string_view WithoutClick(std::string_view name) {
  return EndsWith(name, ".x") || EndsWith(name, ".y") ? name.substr(0, name.size() - 2) : name;
}

/// Whether the field makes any view save, delete or send its spreadsheet. Letter case does not matter, as for
/// keys.
bool IsCommand(std::string_view name) {
  return text::EqualIgnoringCase(name.substr(0, key::kPrefix.size()), key::kPrefix) &&
         (EndsWith(name, key::kFormUpdate) || EndsWith(name, key::kFormDelete) ||
          EndsWith(WithoutClick(name), key::kToExcel));
}

/// What a hardened page does not pass on: names that begin with this view's prefix, in any letter case and
/// with a tag of any length; and the names that the forms of any view post, for a link that brings them would
/// fill in the visitor's own form. Of the keys that begin with "Form" only the one that chooses the look is
/// passed on for other views.
bool IsOfForms(std::string_view name, std::string_view tag) {
  if (!text::StartsWithAscii(name, key::kPrefix)) return false;
  const std::string_view rest = name.substr(key::kPrefix.size());
  if (text::StartsWithAscii(rest, tag) || rest.find('_') != rest.npos) return true;
  if (text::ContainsAscii(rest, "Form") && !EndsWith(rest, key::kFormDisplay)) return true;
  return EndsWith(rest, key::kPrimaryKey) || text::ContainsAscii(rest, "Token");
}

/// Writes fields as long as there is room for them; on a plain page always.
class Room {
 public:
  Room(html::HtmlWriter& out, bool is_bounded, std::size_t bytes)
      : out_(out), is_bounded_(is_bounded), bytes_(bytes) {}

  template <class Put>
  void Write(const platform::RequestField& field, Put put) {
    if (!is_bounded_) return put(out_);
    if (field.name.size() > kMostNameBytes || field.name.size() + field.value.size() > bytes_) return;
    html::HtmlWriter written;
    put(written);
    const std::size_t size = written.Collected().size();
    if (size > bytes_) return;
    bytes_ -= size;
    out_.Write(html::Verbatim{written.Collected()});
  }

 private:
  html::HtmlWriter& out_;
  bool is_bounded_;
  std::size_t bytes_;  ///< Left.
};

template <class Visit>
void ForEachPageField(const settings::Settings& settings, const platform::Request& request, Visit visit) {
  const auto walk = [&](std::span<const platform::RequestField> fields) {
    for (const platform::RequestField& field : fields) {
      if (BelongsToView(field.name, settings.Tag) || IsCommand(field.name)) continue;
      if (!settings.Hardened || !IsOfForms(field.name, settings.Tag)) visit(field);
    }
  };
  walk(request.QueryString());
  if (settings.PersistPageFormRequest) walk(request.Form());
}

}  // namespace

void PutPageFormFields(html::HtmlWriter& out, const settings::Settings& settings,
                       const platform::Request& request) {
  Room room(out, settings.Hardened, kMostTravellingBytes);
  ForEachPageField(settings, request, [&](const platform::RequestField& field) {
    room.Write(field, [&](html::HtmlWriter& to) {
      // The visitor chooses the name as freely as the value.
      if (settings.Hardened) {
        to.Put("<input type=\"hidden\" name=\"{}\" value=\"{}\">\r\n", html::Text{field.name},
               html::Text{field.value});
      } else {
        to.Put("<input type=\"hidden\" name=\"{}\" value=\"{}\">\r\n", html::Quoted{field.name},
               html::Quoted{field.value});
      }
    });
  });
}

void PutPageQueryFields(html::HtmlWriter& out, const settings::Settings& settings,
                        const platform::Request& request, std::size_t links) {
  Room room(out, settings.Hardened, kMostTravellingBytes / std::max<std::size_t>(links, 1));
  ForEachPageField(settings, request, [&](const platform::RequestField& field) {
    room.Write(field, [&](html::HtmlWriter& to) {
      to.Put("&{}={}", html::Encoded{field.name}, html::Encoded{field.value});
    });
  });
}

}  // namespace dralo::state
