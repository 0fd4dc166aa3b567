#include "regional/locale_name.h"

#include <unicode/uloc.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <optional>

#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::regional {
namespace {

constexpr std::string_view kDefaultLocale = "en-US";

struct CloseEnumeration {
  void operator()(UEnumeration* names) const { uenum_close(names); }
};

bool HasData(std::string_view icu_name) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UEnumeration, CloseEnumeration> names(
      uloc_openAvailableByType(ULOC_AVAILABLE_WITH_LEGACY_ALIASES, &status));
  while (U_SUCCESS(status)) {
    int32_t size = 0;
    const char* name = uenum_next(names.get(), &size, &status);
    if (name == nullptr) return false;
    if (std::string_view(name, static_cast<std::size_t>(size)) == icu_name) return true;
  }
  return false;
}

bool IsTagCharacter(char c) { return text::IsLetterOrDigit(c) || c == '-' || c == '_'; }

/// "sr_RS@latin" is "sr_Latn_RS"; other modifiers, such as "@euro", do not matter for texts.
std::string WithScript(const std::string& name, std::string_view modifier) {
  const std::string_view script = modifier == "latin" ? "_Latn" : modifier == "cyrillic" ? "_Cyrl" : "";
  std::string result = name;
  return result.insert(std::min(name.find_first_of("-_"), name.size()), script);
}

/// The tag of the locale called `name`; nothing when ICU does not know it.
std::optional<std::string> FindLocale(std::string_view name) {
  const std::size_t at_modifier = name.find('@');
  const std::string_view modifier = at_modifier == name.npos ? "" : name.substr(at_modifier + 1);
  const std::string base(name.substr(0, name.find_first_of(".@")));
  if (base == "C" || base == "POSIX") return std::string(kDefaultLocale);
  if (base.empty() || !std::all_of(base.begin(), base.end(), IsTagCharacter)) return std::nullopt;

  char icu_name[ULOC_FULLNAME_CAPACITY];
  UErrorCode status = U_ZERO_ERROR;
  const int32_t size = uloc_getName(WithScript(base, modifier).c_str(), icu_name, sizeof icu_name, &status);
  if (U_FAILURE(status) || status == U_STRING_NOT_TERMINATED_WARNING) return std::nullopt;
  std::string tag(icu_name, static_cast<std::size_t>(size));
  if (tag == "en_US_POSIX") return std::string(kDefaultLocale);
  if (!HasData(tag)) return std::nullopt;
  std::replace(tag.begin(), tag.end(), '_', '-');
  return tag;
}

std::string_view Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

}  // namespace

std::string ChooseLocale(std::string_view setting) {
  return ChooseLocale(setting, Environment("LC_ALL"), Environment("LANG"));
}

std::string ChooseLocale(std::string_view setting, std::string_view lc_all, std::string_view lang) {
  if (setting.empty())
    return FindLocale(lc_all.empty() ? lang : lc_all).value_or(std::string(kDefaultLocale));
  if (auto tag = FindLocale(setting)) return *std::move(tag);
  throw platform::Error(
      "The locale \"" + std::string(setting) +
      "\" is not known: write a language and a country such as \"en-US\" or \"de-DE\", or nothing "
      "to take the locale of the environment");
}

}  // namespace dralo::regional
