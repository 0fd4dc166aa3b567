#include "support/shown_view.h"

#include <span>

#include "hosts/cpp/url_encoded.h"
#include "support/html_elements.h"

namespace dralo::tests {
namespace {

using Control = ShownView::Control;

std::string FileName(std::string_view address) { return std::string(address.substr(address.rfind('/') + 1)); }

/// The elements from the view's form tag to its end tag.
std::span<const Element> FormOf(std::span<const Element> elements, std::string_view tag) {
  const std::string name = "FormDraloGrid" + std::string(tag);
  std::size_t first = 0;
  while (first < elements.size() && !(elements[first].Is("form") && elements[first]["name"] == name)) ++first;
  std::size_t last = first;
  while (last < elements.size() && !elements[last].Is("/form")) ++last;
  return elements.subspan(first, last - first);
}

/// Reads element by element and remembers what it stands in.
class ViewReader {
 public:
  void Read(const Element& element) {
    ReadControl(element);
    ReadBar(element);
    ReadHeader(element);
    ReadRow(element);
  }

  ShownView view;

 private:
  void ReadControl(const Element& element) {
    if (element.Is("input")) {
      const auto kind = element["type"] == "image" ? Control::Kind::kImage : Control::Kind::kHidden;
      view.controls.push_back({kind, std::string(element["name"]), std::string(element["value"])});
    } else if (element.Is("select")) {
      view.controls.push_back({Control::Kind::kSelect, std::string(element["name"]), ""});
    } else if (element.Is("option")) {
      Control& select = view.controls.back();
      if (select.options.empty() || element.Has("selected")) select.value = element["value"];
      select.has_selected_option = select.has_selected_option || element.Has("selected");
      select.options.emplace_back(element["value"]);
    }
  }

  void ReadBar(const Element& element) {
    if (element.Is("th") && element.Has("nowrap")) {
      view.bars.emplace_back();
      cells_of_bar_ = 0;
      in_bar_ = true;
    } else if (element.Is("/th")) {
      in_bar_ = false;
    } else if (in_bar_ && element.Is("td") && ++cells_of_bar_ == 2) {
      view.bars.back().counter = element.text.substr(element.text.starts_with(' ') ? 1 : 0);
    } else if (in_bar_ && cells_of_bar_ == 1 && element.Has("src")) {
      view.bars.back().images.push_back(FileName(element["src"]));
    }
  }

  void ReadHeader(const Element& element) {
    if (element.Is("th")) {
      in_header_ = !element.Has("nowrap");
      if (in_header_) view.columns.push_back({.name = std::string(element.text), .link = "", .arrow = ""});
    } else if (element.Is("/th")) {
      in_header_ = false;
    } else if (in_header_ && element.Is("a")) {
      view.columns.back().link = element["href"];
    } else if (in_header_ && element.Is("nobr")) {
      view.columns.back().name = element.text.substr(0, element.text.find("&nbsp;"));
    } else if (in_header_ && element.Is("img")) {
      view.columns.back().arrow = FileName(element["src"]);
    }
  }

  void ReadRow(const Element& element) {
    if (element.Is("tr") && element["id"].starts_with("drl")) {
      view.rows.emplace_back();
    } else if (element.Is("td") && element["id"].starts_with("drl")) {
      view.rows.back().emplace_back(element.text);
      in_cell_ = true;
    } else if (element.Is("/td")) {
      in_cell_ = false;
    } else if (in_cell_) {
      view.rows.back().back() += element.text;
    }
  }

  bool in_bar_ = false;
  int cells_of_bar_ = 0;
  bool in_header_ = false;
  bool in_cell_ = false;
};

}  // namespace

ShownView::Fields ShownView::Press(const Control& button) const {
  Fields fields;
  for (const Control& control : controls) {
    if (&control == &button) {
      fields.push_back({control.name + ".x", "7"});
      fields.push_back({control.name + ".y", "9"});
    } else if (control.kind != Control::Kind::kImage) {
      fields.push_back({control.name, control.value});
    }
  }
  return fields;
}

ShownView::Fields ShownView::Choose(const Control& select, std::string_view option) const {
  Fields fields;
  for (const Control& control : controls) {
    if (control.kind == Control::Kind::kImage) continue;
    fields.push_back({control.name, &control == &select ? std::string(option) : control.value});
  }
  return fields;
}

ShownView ReadView(std::string_view html, std::string_view tag) {
  const std::vector<Element> elements = Elements(html);
  ViewReader reader;
  for (const Element& element : FormOf(elements, tag)) reader.Read(element);
  return reader.view;
}

ShownView::Fields QueryOf(std::string_view address) {
  std::string query(address.substr(std::min(address.find('?'), address.size() - 1) + 1));
  for (std::size_t at = 0; (at = query.find("&amp;", at)) != query.npos; ++at) query.replace(at, 5, "&");
  return host::ParseUrlEncoded(query);
}

}  // namespace dralo::tests
