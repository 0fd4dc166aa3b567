#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/environment.h"

namespace dralo::host {

/// The services of a process: the database objects, "Dralo.DbView" and "Dralo.DBConnection" by identifier,
/// regional settings and regular expressions. Make one per process; it outlives every page. Several threads
/// may use it.
class Environment final : public platform::Environment {
 public:
  /// `locale` such as "de-DE"; empty takes LC_ALL, else LANG, else en-US.
  /// Throws platform::Error when the locale is unknown, and as SetSite() does.
  explicit Environment(std::string_view locale = {}, platform::Site site = {});
  ~Environment() override;

  platform::ObjectPtr CreateObject(std::string_view programmatic_identifier) override;
  const platform::ValueFormatting& Regional() const override { return *formatting_; }
  platform::Environment& InLocale(std::string_view locale) override;
  std::unique_ptr<platform::RegExp> CreateRegExp() override;
  const platform::Site& GetSite() const override { return site_; }

  /// For hosts whose settings change between pages; no page may be served meanwhile. Throws platform::Error,
  /// and changes nothing, when a trusted origin or a host is not valid.
  void SetSite(platform::Site site);

 private:
  std::unique_ptr<platform::ValueFormatting> formatting_;
  platform::Site site_;
  std::mutex locales_mutex_;
  std::map<std::string, std::unique_ptr<platform::Environment>, std::less<>> locales_;
};

}  // namespace dralo::host
