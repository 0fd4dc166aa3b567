#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/resource.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <thread>

#include "support/named_cases.h"
#include "unit/editing/child_process.h"
#include "unit/editing/saving.h"

namespace dralo::tests {

namespace {

constexpr std::string_view kVersionA = "1,'aaa','aaa',NULL,NULL,NULL,0,'aaa'";

/// Saves a version of the record whose texts are all `text`, as a process of its own would.
std::string SaveVersion(const TemporaryDatabase& database, std::string_view text) {
  Saving saving(database);
  saving.Post({{"ID", "1"}, {"Name", text}, {"City", text}, {"Notes", text}});
  const bool is_saved = saving.Save();
  return (is_saved ? "saved " : "failed ") + saving.Message() + saving.Status();
}

[[noreturn]] void Die() {
  kill(getpid(), SIGKILL);
  for (;;) pause();
}

/// Makes every connection of this process know the SQL function die().
void OfferDeath() {
  const auto offer = +[](sqlite3* database, const char**, const sqlite3_api_routines*) -> int {
    const auto die = +[](sqlite3_context*, int, sqlite3_value**) { Die(); };
    return sqlite3_create_function(database, "die", 0, SQLITE_UTF8, nullptr, die, nullptr, nullptr);
  };
  sqlite3_auto_extension(reinterpret_cast<void (*)()>(offer));
}

/// Makes every connection of this process die when it commits.
void DieAtCommit() {
  const auto hook = +[](sqlite3* database, const char**, const sqlite3_api_routines*) -> int {
    sqlite3_commit_hook(
        database, +[](void*) -> int { Die(); }, nullptr);
    return SQLITE_OK;
  };
  sqlite3_auto_extension(reinterpret_cast<void (*)()>(hook));
}

/// The record is as it was, and the next save succeeds.
void ExpectUnharmed(const TemporaryDatabase& database) {
  EXPECT_EQ(database.Value("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(Row(database), kAnna);
  EXPECT_EQ(database.Value("SELECT group_concat(ID) FROM T"), "1,2");
  database.Run("DROP TRIGGER IF EXISTS Death");
  EXPECT_EQ(SaveVersion(database, "aaa"), "saved &nbsp;[Record saved ok]");
  EXPECT_EQ(Row(database), kVersionA);
}

struct DeathCase {
  std::string_view name, trigger;
  void (*prepare)();
  void (*change)(Saving& saving);
};

class KilledChange : public testing::TestWithParam<DeathCase> {};

TEST_P(KilledChange, LeavesTheRecordsAsTheyWere) {
  const TemporaryDatabase database(kCustomers);
  database.Run(GetParam().trigger);
  ChildProcess child([&] {
    GetParam().prepare();
    Saving saving(database);
    GetParam().change(saving);
    return saving.Message() + saving.Status();
  });
  EXPECT_EQ(child.Wait(), SIGKILL);
  EXPECT_EQ(child.Text(), "");
  ExpectUnharmed(database);
}

void SaveB(Saving& saving) {
  saving.Post({{"ID", "1"}, {"Name", "bbb"}, {"City", "bbb"}, {"Notes", "bbb"}}).Save();
}
void InsertB(Saving& saving) { saving.Post({{"ID", "9"}, {"Name", "bbb"}}).Insert(); }
void DeleteAnna(Saving& saving) {
  saving.settings.DeleteSQL = "DELETE FROM T";
  saving.Post("ID", "1").Delete();
}

constexpr DeathCase kDeaths[] = {
    {"WhenTheRowWasWrittenAlready", "CREATE TRIGGER Death AFTER UPDATE ON T BEGIN SELECT die(); END",
     OfferDeath, SaveB},
    {"BeforeTheCommit", "", DieAtCommit, SaveB},
    {"WhenARecordWasAdded", "CREATE TRIGGER Death AFTER INSERT ON T BEGIN SELECT die(); END", OfferDeath,
     InsertB},
    {"WhenARecordWasDeleted", "CREATE TRIGGER Death AFTER DELETE ON T BEGIN SELECT die(); END", OfferDeath,
     DeleteAnna},
};

INSTANTIATE_TEST_SUITE_P(Deaths, KilledChange, testing::ValuesIn(kDeaths), kByName);

TEST(KilledSave, LeavesAWholeVersionAtAnyMoment) {
  const TemporaryDatabase database(kCustomers);
  const std::set<std::string> versions = {"'Anna','Oslo','first'", "'aaa','aaa','aaa'", "'bbb','bbb','bbb'",
                                          "'ccc','ccc','ccc'"};
  for (int round = 0; round < 15; ++round) {
    ChildProcess child([&]() -> std::string {
      for (;;) {
        SaveVersion(database, "aaa");
        SaveVersion(database, "bbb");
      }
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(15 + 7 * round));
    kill(child.Id(), SIGKILL);
    EXPECT_EQ(child.Wait(), SIGKILL);
    EXPECT_EQ(database.Value("PRAGMA integrity_check"), "ok");
    const std::string row = Row(database, "ID=1", "Name,City,Notes");
    EXPECT_TRUE(versions.contains(row)) << row;
    EXPECT_EQ(SaveVersion(database, "ccc"), "saved &nbsp;[Record saved ok]");
  }
}

TEST(SaveOnADiskThatIsFull, ChangesNothingAndSaysSo) {
  const TemporaryDatabase database(kCustomers);
  ChildProcess child([&]() -> std::string {
    // Files of this process cannot grow beyond what the database has now.
    const auto size = static_cast<rlim_t>(std::filesystem::file_size(database.Path()));
    const rlimit limit{size, size};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
    Saving saving(database);
    saving.Post({{"ID", "1"}, {"Name", "bbb"}, {"Notes", std::string(100'000, 'b')}});
    return (saving.Save() ? "saved " : "failed ") + saving.Message() + saving.Status();
  });
  EXPECT_EQ(child.Wait(), 0);
  EXPECT_EQ(child.Text(), "failed Update failed: disk I/O error<br>");
  ExpectUnharmed(database);
}

// Several at once

/// Whether the row is one of the versions, with none of its fields from another.
bool IsOneVersion(const std::string& row) { return row == "'aaa','aaa','aaa'" || row == "'bbb','bbb','bbb'"; }

/// A save either succeeds or loses; it never fails otherwise.
bool IsOutcome(const std::string& outcome) {
  return outcome == "saved &nbsp;[Record saved ok]" ||
         outcome ==
             "failed Update failed: Row cannot be located for updating. Some values may have been changed "
             "since it was last read.<br>";
}

TEST(ConcurrentSaves, OfThreadsLeaveOneVersionAndTellTheLoser) {
  const TemporaryDatabase database(kCustomers);
  for (int round = 0; round < 60; ++round) {
    database.Run("UPDATE T SET Name='Anna', City='Oslo', Notes='first' WHERE ID=1");
    std::string outcome_a;
    std::thread a([&] { outcome_a = SaveVersion(database, "aaa"); });
    const std::string outcome_b = SaveVersion(database, "bbb");
    a.join();
    EXPECT_TRUE(IsOutcome(outcome_a)) << outcome_a;
    EXPECT_TRUE(IsOutcome(outcome_b)) << outcome_b;
    EXPECT_TRUE(outcome_a.starts_with("saved") || outcome_b.starts_with("saved"));
    const std::string row = Row(database, "ID=1", "Name,City,Notes");
    EXPECT_TRUE(IsOneVersion(row)) << row;
    EXPECT_TRUE(outcome_a.starts_with("saved") || row == "'bbb','bbb','bbb'") << row;
    EXPECT_TRUE(outcome_b.starts_with("saved") || row == "'aaa','aaa','aaa'") << row;
  }
}

TEST(ConcurrentSaves, OfDifferentFieldsAreNeverMixed) {
  const TemporaryDatabase database(kCustomers);
  const auto save = [&](const char* name, const char* city) {
    Saving saving(database);
    saving.Post({{"ID", "1"}, {"Name", name}, {"City", city}, {"Stock", "3"}, {"Price", "2.5"}});
    saving.Post({{"Since", "5/3/2024"}, {"Active", "True"}, {"Notes", "first"}});
    return (saving.Save() ? "saved " : "failed ") + saving.Message() + saving.Status();
  };
  for (int round = 0; round < 60; ++round) {
    database.Run("UPDATE T SET Name='Anna', City='Oslo' WHERE ID=1");
    std::string outcome_a;
    std::thread a([&] { outcome_a = save("aaa", "Oslo"); });
    const std::string outcome_b = save("Anna", "bbb");
    a.join();
    EXPECT_TRUE(IsOutcome(outcome_a)) << outcome_a;
    EXPECT_TRUE(IsOutcome(outcome_b)) << outcome_b;
    const std::string row = Row(database, "ID=1", "Name,City");
    EXPECT_TRUE(row == "'aaa','Oslo'" || row == "'Anna','bbb'") << row << outcome_a << outcome_b;
  }
}

TEST(ConcurrentSaves, OfProcessesLeaveOneVersion) {
  const TemporaryDatabase database(kCustomers);
  const auto save_often = [&](std::string_view text) {
    return [&database, text]() -> std::string {
      for (int i = 0; i < 40; ++i) {
        if (const std::string outcome = SaveVersion(database, text); !IsOutcome(outcome)) return outcome;
      }
      return "done";
    };
  };
  ChildProcess a(save_often("aaa"));
  ChildProcess b(save_often("bbb"));
  EXPECT_EQ(a.Wait(), 0);
  EXPECT_EQ(b.Wait(), 0);
  EXPECT_EQ(a.Text(), "done");
  EXPECT_EQ(b.Text(), "done");
  EXPECT_TRUE(IsOneVersion(Row(database, "ID=1", "Name,City,Notes")));
  EXPECT_EQ(database.Value("PRAGMA integrity_check"), "ok");
}

TEST(ConcurrentSaves, OfNewRecordsLoseNone) {
  const TemporaryDatabase database(kCustomers);
  const auto add_often = [&](std::string_view name) {
    for (int i = 0; i < 40; ++i) {
      Saving saving(database);
      saving.settings.EditNewPKStatement = "autoincrement";
      EXPECT_TRUE(saving.Post("Name", name).Insert()) << saving.Message();
    }
  };
  std::thread a([&] { add_often("aaa"); });
  add_often("bbb");
  a.join();
  EXPECT_EQ(database.Value("SELECT count(*)||','||count(DISTINCT ID) FROM T WHERE Name IN ('aaa', 'bbb')"),
            "80,80");
}

}  // namespace

}  // namespace dralo::tests
