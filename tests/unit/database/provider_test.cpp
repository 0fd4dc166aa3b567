#include "database/provider.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "data/shorthand.h"
#include "database/absent_provider.h"

namespace dralo::tests {
namespace {

const database::AbsentProvider kNamed({"Tables", "Sheets"}, "DRALO_TABLES");
const database::AbsentProvider kDriver({database::kDriverProvider}, "DRALO_DRIVER");
const std::array<const database::Provider*, 2> kProviders = {&kNamed, &kDriver};

const database::Provider* Found(std::string_view connection_string) {
  return &database::FindProvider(kProviders, database::ConnectionString(connection_string));
}

TEST(Providers, AreFoundByAnyOfTheirNamesInAnyLetterCase) {
  EXPECT_EQ(Found("Provider=tables"), &kNamed);
  EXPECT_EQ(Found("Provider=SHEETS"), &kNamed);
}

TEST(Providers, AreThoseOfDriversWhereADriverOrADataSourceIsNamed) {
  EXPECT_EQ(Found("Provider=Tables;Driver=x"), &kDriver);
  EXPECT_EQ(Found("DSN=x"), &kDriver);
  EXPECT_EQ(Found("Provider=MSDASQL"), &kDriver);
}

TEST(Providers, AreUnknownToAHostThatDoesNotOfferThem) {
  EXPECT_EQ(MessageOf([] { Found("Provider=SQLite"); }),
            "The connection string names an unknown provider; write ");
}

TEST(Providers, SayThatTheyWereLeftOutOfTheBuild) {
  const auto connection = database::MakeConnection(kProviders);
  EXPECT_EQ(MessageOf([&] { connection->Open("Provider=Sheets"); }),
            "This build of Dralo has no provider Tables; build it with DRALO_TABLES=ON");
}

}  // namespace
}  // namespace dralo::tests
