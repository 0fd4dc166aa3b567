#pragma once

#include <memory>
#include <string_view>

#include "platform/environment.h"

namespace dralo::host {

/// The services of a process: the database objects, "Dralo.DbView" and "Dralo.DBConnection" by identifier,
/// regional settings and regular expressions. Make one per process; it outlives every page. Several threads
/// may use it.
class Environment final : public platform::Environment {
 public:
  /// `locale` such as "de-DE"; empty takes LC_ALL, else LANG, else en-US.
  /// Throws platform::Error when the locale is unknown.
  explicit Environment(std::string_view locale = {});
  ~Environment() override;

  platform::ObjectPtr CreateObject(std::string_view programmatic_identifier) override;
  const platform::ValueFormatting& Regional() const override { return *formatting_; }
  std::unique_ptr<platform::RegExp> CreateRegExp() override;

 private:
  std::unique_ptr<platform::ValueFormatting> formatting_;
};

}  // namespace dralo::host
