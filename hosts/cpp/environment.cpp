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

struct Registration {
  std::string_view identifier;
  ObjectPtr (*make)(Environment& environment);
};

constexpr auto kRegistrations = std::to_array<Registration>({
    {"ADODB.Connection",
     [](Environment& environment) -> ObjectPtr {
       return database::MakeConnection(AllProviders(), &environment.Regional());
     }},
    {"ADODB.Recordset",
     [](Environment& environment) -> ObjectPtr { return database::MakeRecordset(&environment.Regional()); }},
    {"ADODB.Command", [](Environment&) -> ObjectPtr { return std::make_shared<platform::Command>(); }},
    {"Dralo.DbView",
     [](Environment& environment) -> ObjectPtr { return std::make_shared<component::DbView>(environment); }},
    {"Dralo.DBConnection",
     [](Environment& environment) -> ObjectPtr {
       return std::make_shared<component::DBConnection>(environment);
     }},
});

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
  for (const Registration& registration : kRegistrations) {
    if (text::EqualIgnoringCase(registration.identifier, programmatic_identifier))
      return registration.make(*this);
  }
  throw platform::Error("No object is registered as \"" + std::string(programmatic_identifier) + "\"");
}

std::unique_ptr<platform::RegExp> Environment::CreateRegExp() { return regional::MakeRegExp(); }

}  // namespace dralo::host
