#include "database/rows_aside.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace dralo::database {

namespace {

constexpr int kManyRows = 3 * static_cast<int>(SpoolFile::kMaxBytesInMemory / 1000);

TEST(RowsAside, GivesRowsBackInTheirOrderHoweverManyThereAre) {
  const std::string text(1000, 'x');
  RowsAside rows;
  for (int i = 0; i < kManyRows; ++i) rows.Add({std::to_string(i), {}, "", text});
  RowsAside::Row row(4);
  for (int i = 0; i < kManyRows; ++i) {
    ASSERT_TRUE(rows.Next(row));
    ASSERT_EQ(row, (RowsAside::Row{std::to_string(i), {}, "", text}));
    ASSERT_EQ(row[1].data(), nullptr) << "Null";
    ASSERT_NE(row[2].data(), nullptr) << "an empty text";
  }
  EXPECT_FALSE(rows.Next(row));
}

TEST(RowsAside, SayOnceBehindTheLastRowWhatHasEndedThem) {
  RowsAside rows;
  rows.Add({"a"});
  rows.EndBy(std::make_exception_ptr(std::runtime_error("lost")));
  RowsAside::Row row(1);
  EXPECT_TRUE(rows.Next(row));
  EXPECT_THROW(rows.Next(row), std::runtime_error);
  EXPECT_FALSE(rows.Next(row));
}

}  // namespace

}  // namespace dralo::database
