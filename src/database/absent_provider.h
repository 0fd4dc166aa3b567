#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "database/provider.h"
#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::database {

/// Takes the place of a provider that was left out of the build, and says so.
class AbsentProvider final : public Provider {
 public:
  /// `option` is the build's option that includes the provider. All texts live as long as the process.
  AbsentProvider(std::initializer_list<std::string_view> names, std::string_view option)
      : names_(names), option_(option) {}

  std::string_view Name() const override { return names_.front(); }
  std::string Library() const override { return "not in this build"; }
  bool IsCalled(std::string_view name) const override {
    for (const std::string_view own : names_) {
      if (text::EqualAscii(name, own)) return true;
    }
    return false;
  }
  std::unique_ptr<Session> Connect(const ConnectionString&) const override {
    throw platform::Error("This build of Dralo has no provider " + std::string(Name()) + "; build it with " +
                          std::string(option_) + "=ON");
  }

 private:
  std::vector<std::string_view> names_;
  std::string_view option_;
};

}  // namespace dralo::database
