#include "hosts/cpp/environment.h"

#include <array>
#include <string>
#include <utility>

#include "component/db_connection.h"
#include "component/db_view.h"
#include "database/objects.h"
#include "hosts/cpp/check_site.h"
#include "hosts/cpp/providers.h"
#include "regional/locale_formatting.h"
#include "regional/reg_exp.h"
#include "text/letter_case.h"

namespace dralo::host {
namespace {

using platform::ObjectPtr;

/// Objects refer to the regional settings that they were made with, so those are kept as long as the process;
/// this is the most that it keeps.
constexpr std::size_t kMostLocales = 256;

struct Registration {
  std::string_view identifier;
  ObjectPtr (*make)(platform::Environment& environment);
};

constexpr auto kRegistrations = std::to_array<Registration>({
    {"ADODB.Connection",
     [](platform::Environment& environment) -> ObjectPtr {
       return database::MakeConnection(AllProviders(), &environment.Regional());
     }},
    {"ADODB.Recordset",
     [](platform::Environment& environment) -> ObjectPtr {
       return database::MakeRecordset(&environment.Regional());
     }},
    {"ADODB.Command",
     [](platform::Environment&) -> ObjectPtr { return std::make_shared<platform::Command>(); }},
    {"Dralo.DbView",
     [](platform::Environment& environment) -> ObjectPtr {
       return std::make_shared<component::DbView>(environment);
     }},
    {"Dralo.DBConnection",
     [](platform::Environment& environment) -> ObjectPtr {
       return std::make_shared<component::DBConnection>(environment);
     }},
});

ObjectPtr MakeObject(platform::Environment& environment, std::string_view programmatic_identifier) {
  for (const Registration& registration : kRegistrations) {
    if (text::EqualIgnoringCase(registration.identifier, programmatic_identifier))
      return registration.make(environment);
  }
  throw platform::Error("No object is registered as \"" + std::string(programmatic_identifier) + "\"");
}

/// The services of another environment with regional settings of their own.
class LocaleEnvironment final : public platform::Environment {
 public:
  /// `base` outlives the object.
  LocaleEnvironment(platform::Environment& base, std::string_view locale)
      : base_(base), formatting_(regional::MakeFormatting(locale)) {}

  ObjectPtr CreateObject(std::string_view programmatic_identifier) override {
    return MakeObject(*this, programmatic_identifier);
  }
  const platform::ValueFormatting& Regional() const override { return *formatting_; }
  platform::Environment& InLocale(std::string_view locale) override { return base_.InLocale(locale); }
  std::unique_ptr<platform::RegExp> CreateRegExp() override { return base_.CreateRegExp(); }
  const platform::Site& GetSite() const override { return base_.GetSite(); }

 private:
  platform::Environment& base_;
  std::unique_ptr<platform::ValueFormatting> formatting_;
};

}  // namespace

Environment::Environment(std::string_view locale, platform::Site site)
    : formatting_(regional::MakeFormatting(locale)) {
  SetSite(std::move(site));
}

void Environment::SetSite(platform::Site site) {
  CheckSite(site);
  site_ = std::move(site);
}

Environment::~Environment() = default;

ObjectPtr Environment::CreateObject(std::string_view programmatic_identifier) {
  return MakeObject(*this, programmatic_identifier);
}

platform::Environment& Environment::InLocale(std::string_view locale) {
  if (locale.empty()) return *this;
  const std::lock_guard lock(locales_mutex_);
  if (const auto known = locales_.find(locale); known != locales_.end()) return *known->second;
  if (locales_.size() >= kMostLocales) throw platform::Error("Too many locales are in use");
  auto made = std::make_unique<LocaleEnvironment>(*this, locale);
  return *locales_.emplace(locale, std::move(made)).first->second;
}

std::unique_ptr<platform::RegExp> Environment::CreateRegExp() { return regional::MakeRegExp(); }

}  // namespace dralo::host
