#pragma once

#include <string_view>

namespace dralo::html {

/// What browsers do with an attribute's value.
enum class AttributeMeaning {
  kPlain,            ///< They show it, or take it as a name or a size.
  kAddress,          ///< They follow it or load it.
  kRelativeAddress,  ///< They post a form to it.
  kScript,           ///< They run it.
  kStyle,            ///< They take it as a style.
  kForbidden,        ///< It decides what is run, or has too many rules to be filled in safely.
};

/// Both names in lower case; `element` is empty when it is not known.
AttributeMeaning MeaningOf(std::string_view element, std::string_view attribute);

}  // namespace dralo::html
