#include "database/spool_file.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "data/temporary_folder.h"
#include "dralo/error.h"
#include "support/child_process.h"

namespace dralo::database {

namespace {

constexpr std::size_t kLine = 10;

std::string NumberedLine(int number) {
  std::string line = std::to_string(number);
  return line.insert(0, kLine - line.size(), '.');
}

void PutLines(SpoolFile& spool, int lines) {
  for (int i = 0; i < lines; ++i) spool.Put(NumberedLine(i));
}

std::string TakeLine(SpoolFile& spool) {
  std::string line(kLine, '\0');
  return spool.Take(line.data(), line.size()) ? line : "";
}

/// As many lines as need the file.
constexpr int kManyLines = 2 * static_cast<int>(SpoolFile::kMaxBytesInMemory / kLine) + 3;

/// The folder for temporary files is a new one.
class SpoolFileInAFolder : public ::testing::Test {
 protected:
  SpoolFileInAFolder() {
    if (const char* const before = std::getenv("TMPDIR")) before_ = before;
    setenv("TMPDIR", folder_.File("").c_str(), 1);
  }
  ~SpoolFileInAFolder() override {
    if (before_.empty()) {
      unsetenv("TMPDIR");
    } else {
      setenv("TMPDIR", before_.c_str(), 1);
    }
  }

  /// Descriptors of this process that lead to a file in the folder.
  int Descriptors() const {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
      std::error_code gone;
      count += std::filesystem::read_symlink(entry, gone).string().starts_with(folder_.File("")) ? 1 : 0;
    }
    return count;
  }

  const tests::TemporaryFolder folder_;
  std::string before_;
};

TEST_F(SpoolFileInAFolder, GivesBackWhatWasPut) {
  for (const int lines : {0, 1, 1000, kManyLines}) {
    SpoolFile spool;
    PutLines(spool, lines);
    EXPECT_EQ(spool.Left(), kLine * static_cast<std::size_t>(lines));
    for (int i = 0; i < lines; ++i) ASSERT_EQ(TakeLine(spool), NumberedLine(i));
    EXPECT_EQ(spool.Left(), 0u);
    EXPECT_EQ(TakeLine(spool), "");
  }
}

TEST_F(SpoolFileInAFolder, GivesPiecesOfAnySize) {
  SpoolFile spool;
  PutLines(spool, kManyLines);
  std::string all(spool.Left() - kLine, '\0');
  EXPECT_TRUE(spool.Take(all.data(), all.size()));
  EXPECT_EQ(all.substr(all.size() - kLine), NumberedLine(kManyLines - 2));
  EXPECT_TRUE(spool.Take(all.data(), 0));
  EXPECT_FALSE(spool.Take(all.data(), kLine + 1)) << "more than is left";
  EXPECT_EQ(TakeLine(spool), NumberedLine(kManyLines - 1));
}

TEST_F(SpoolFileInAFolder, MakesAFileWithoutANameAndOnlyWhenItIsNeeded) {
  {
    SpoolFile spool;
    PutLines(spool, 1000);
    EXPECT_EQ(Descriptors(), 0);
    PutLines(spool, kManyLines);
    EXPECT_EQ(Descriptors(), 1);
    EXPECT_TRUE(std::filesystem::is_empty(folder_.File("")));
  }
  EXPECT_EQ(Descriptors(), 0);
}

TEST_F(SpoolFileInAFolder, IsNotPassedOnToOtherPrograms) {
  const std::string command = "! ls -l /proc/self/fd | grep -q " + folder_.File("");
  SpoolFile spool;
  PutLines(spool, kManyLines);
  EXPECT_EQ(std::system(command.c_str()), 0);
}

TEST_F(SpoolFileInAFolder, IsNotDisturbedByAChildProcess) {
  SpoolFile spool;
  PutLines(spool, kManyLines);
  ASSERT_EQ(TakeLine(spool), NumberedLine(0));
  EXPECT_TRUE(tests::HoldsInChild([&] {
    bool is_same = true;
    for (int i = 1; i < kManyLines / 2; ++i) is_same = is_same && TakeLine(spool) == NumberedLine(i);
    return is_same;
  }));
  for (int i = 1; i < kManyLines; ++i) ASSERT_EQ(TakeLine(spool), NumberedLine(i));
}

TEST_F(SpoolFileInAFolder, SaysWhenThereIsNoFolder) {
  setenv("TMPDIR", folder_.File("missing").c_str(), 1);
  SpoolFile spool;
  PutLines(spool, 1000);
  EXPECT_EQ(TakeLine(spool), NumberedLine(0)) << "few bytes need none";
  SpoolFile large;
  try {
    PutLines(large, kManyLines);
    FAIL() << "expected an error";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Description(), "The folder for temporary files has no room for the rest of a result");
  }
}

}  // namespace

}  // namespace dralo::database
