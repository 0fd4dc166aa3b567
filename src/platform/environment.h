#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "dralo/error.h"
#include "dralo/object.h"
#include "dralo/site.h"
#include "platform/regexp.h"
#include "platform/value_formatting.h"

namespace dralo::platform {

/// The services a process offers to every page: object creation and regional settings. Outlives all pages.
class Environment {
 public:
  virtual ~Environment() = default;

  /// A new object by its programmatic identifier, such as "ADODB.Recordset", in any letter case. Throws Error
  /// when no class is registered under it.
  virtual ObjectPtr CreateObject(std::string_view programmatic_identifier) = 0;

  virtual const ValueFormatting& Regional() const = 0;

  /// The same services with the regional settings of `locale`, such as "de-DE"; this object for an empty
  /// text. Valid as long as this object. Throws Error when the locale is unknown; the default implementation
  /// knows none.
  virtual Environment& InLocale(std::string_view locale) {
    if (locale.empty()) return *this;
    throw Error("The host has no other locale than its own");
  }

  virtual std::unique_ptr<RegExp> CreateRegExp() = 0;

  /// What holds for all pages; by default an empty Site.
  virtual const Site& GetSite() const {
    static const Site nothing;
    return nothing;
  }
};

/// CreateObject() for callers that know what the identifier stands for.
/// Throws Error when the object is of another class.
template <class Class>
std::shared_ptr<Class> Create(Environment& environment, std::string_view programmatic_identifier) {
  auto object = std::dynamic_pointer_cast<Class>(environment.CreateObject(programmatic_identifier));
  if (!object) throw Error("The object \"" + std::string(programmatic_identifier) + "\" is of another class");
  return object;
}

}  // namespace dralo::platform
