#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "hosts/cpp/environment.h"
#include "unit/editing/saving.h"

namespace dralo::tests {

/// One field V beside a key, saved to an existing record or to a new one.
class OneField {
 public:
  /// `type` with its constraints, such as "INT NOT NULL"; `value` as an SQL literal.
  explicit OneField(const std::string& type, const std::string& value = "NULL",
                    platform::Environment& environment = AmericanEnvironment())
      : database_("CREATE TABLE T(ID INTEGER PRIMARY KEY, V " + type + "); INSERT INTO T VALUES(1," + value +
                  ")"),
        saving(database_, environment) {}

  /// What is stored after the save, as an SQL literal, and the message when it failed.
  std::string Save(std::string_view posted) {
    saving.Post({{"ID", "1"}, {"V", posted}});
    const bool is_saved = saving.Save();
    return Outcome(is_saved, "1", "&nbsp;[Record saved ok]");
  }

  std::string SaveWithoutInput() {
    saving.Post("ID", "1");
    const bool is_saved = saving.Save();
    return Outcome(is_saved, "1", "&nbsp;[Record saved ok]");
  }

  std::string Insert(std::string_view posted) {
    saving.Post({{"ID", "2"}, {"V", posted}});
    const bool is_saved = saving.Insert();
    return Outcome(is_saved, "2", "&nbsp;[New record saved ok]");
  }

 private:
  std::string Outcome(bool is_saved, std::string_view id, std::string_view expected_status) {
    EXPECT_EQ(is_saved, saving.Status() == expected_status) << saving.Status();
    if (is_saved) {
      EXPECT_EQ(saving.Message(), "");
    }
    std::string outcome = Row(database_, "ID=" + std::string(id), "V");
    if (!is_saved) outcome += " " + saving.Status() + saving.Message();
    return outcome;
  }

  TemporaryDatabase database_;

 public:
  Saving saving;
};

inline std::string Saved(const std::string& type, std::string_view posted,
                         const std::string& value = "NULL") {
  return OneField(type, value).Save(posted);
}

inline std::string Inserted(const std::string& type, std::string_view posted) {
  return OneField(type).Insert(posted);
}

inline constexpr std::string_view kRequired = " &nbsp;Record WAS NOT SAVED. Fill out all required fields.";

inline host::Environment& German() {
  static host::Environment environment("de-DE");
  return environment;
}

}  // namespace dralo::tests
