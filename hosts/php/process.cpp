#include "hosts/php/process.h"

#include <algorithm>
#include <chrono>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "database/objects.h"
#include "dralo/error.h"
#include "hosts/php/guard.h"
#include "text/ascii.h"
#include "text/decimal.h"

#include "hosts/php/thread_state.h"

namespace dralo::php {
namespace {

/// The ini setting `name`, a whole number from 0 to `highest`.
unsigned NumberSetting(const std::string& name, const char* text, unsigned highest) {
  const std::string_view digits(text == nullptr ? "" : text);
  const auto number = text::ParseNumber<unsigned>(digits);
  if (!number || *number > highest) {
    throw platform::Error("The setting " + name + " is \"" + std::string(digits) +
                          "\": write a whole number from 0 to " + std::to_string(highest));
  }
  return *number;
}

void LimitIdleConnections() {
  const unsigned number = NumberSetting("dralo.pool_size", INI_STR("dralo.pool_size"), 1'000);
  const unsigned seconds =
      NumberSetting("dralo.pool_idle_seconds", INI_STR("dralo.pool_idle_seconds"), 1'000'000);
  database::LimitIdleConnections(number, std::chrono::seconds{seconds});
}

std::string TextSetting(const char* text) { return text == nullptr ? std::string() : std::string(text); }

/// The words that ini files use for true and for false; anything else throws.
bool FlagSetting(const std::string& text) {
  const auto is_any = [&](std::initializer_list<std::string_view> words) {
    return std::ranges::any_of(words, [&](std::string_view word) { return text::EqualAscii(word, text); });
  };
  if (is_any({"1", "on", "yes", "true"})) return true;
  if (is_any({"", "0", "off", "no", "false", "none"})) return false;
  throw platform::Error("The setting dralo.hardened is \"" + text + "\": write 1 or 0");
}

/// The items of a list with blanks or commas between them.
std::vector<std::string> ListSetting(const std::string& text) {
  constexpr std::string_view kBetween = ", \t";
  std::vector<std::string> items;
  for (std::size_t at = text.find_first_not_of(kBetween); at != text.npos;) {
    const std::size_t end = std::min(text.find_first_of(kBetween, at), text.size());
    items.push_back(text.substr(at, end - at));
    at = text.find_first_not_of(kBetween, end);
  }
  return items;
}

/// Passes a line on to the log that error_log names.
void LogLine(std::string_view line) {
  const std::string message = "Dralo: " + std::string(line);
  CallPhp([&] { php_log_err_with_severity(message.c_str(), LOG_NOTICE); });
}

void TakeSite(ThreadState& thread) {
  WrittenSite written{TextSetting(INI_STR("dralo.hardened")), TextSetting(INI_STR("dralo.trusted_origins")),
                      TextSetting(INI_STR("dralo.hosts"))};
  if (written == thread.site_in_use && thread.environment->GetSite().log) return;
  thread.environment->SetSite({.hardened = FlagSetting(written.hardened),
                               .trusted_origins = ListSetting(written.trusted_origins),
                               .hosts = ListSetting(written.hosts),
                               .log = LogLine});
  thread.site_in_use = std::move(written);
}

}  // namespace

platform::Environment& TheEnvironment() {
  ThreadState& thread = ThisThread();
  // What the process was started with: the first page may come from a directory that has another one.
  const std::string common_locale = TextSetting(INI_ORIG_STR("dralo.locale"));
  if (!thread.environment) {
    auto made = std::make_unique<host::Environment>(common_locale);
    LimitIdleConnections();
    thread.environment = std::move(made);
  }
  TakeSite(thread);
  const std::string locale = TextSetting(INI_STR("dralo.locale"));
  return thread.environment->InLocale(locale == common_locale ? std::string() : locale);
}

void CloseEnvironment() noexcept { ThisThread().environment.reset(); }

}  // namespace dralo::php
