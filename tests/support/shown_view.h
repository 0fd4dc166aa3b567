#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dralo/request.h"

namespace dralo::tests {

/// What a visitor sees of one view, and what a browser sends when the visitor uses it.
struct ShownView {
  using Fields = std::vector<platform::RequestField>;

  /// An input or select of the view's form.
  struct Control {
    enum class Kind { kHidden, kImage, kSelect };
    Kind kind = Kind::kHidden;
    std::string name;
    std::string value;                      ///< Of a select: that of the selected option, else of the first.
    std::vector<std::string> options = {};  ///< Of a select.
    bool has_selected_option = false;
  };

  struct Bar {
    std::vector<std::string> images;  ///< File names without folder, of buttons that work and of others.
    std::string counter;
  };

  struct Column {
    std::string name;
    std::string link;   ///< The address behind the name; empty without a link.
    std::string arrow;  ///< File name without folder; empty without an arrow.
  };

  std::vector<Control> controls;  ///< In the order of the page.
  std::vector<Bar> bars;
  std::vector<Column> columns;
  std::vector<std::vector<std::string>> rows;  ///< The texts of the cells, tags left out.

  /// The form that a click on the image button sends, or a change of the select to `option`.
  Fields Press(const Control& button) const;
  Fields Choose(const Control& select, std::string_view option) const;
};

/// The view with that tag on the page; nothing when it is not there.
ShownView ReadView(std::string_view html, std::string_view tag);

/// The query string of an address as it stands in the page, decoded.
ShownView::Fields QueryOf(std::string_view address);

}  // namespace dralo::tests
