#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "security/hostile_visitor.h"
#include "security/world.h"

namespace dralo::security {
namespace {

constexpr std::size_t kRequests = 60;  ///< Of one visitor.

/// A database, and how many visitors come.
struct Visited {
  const tests::Database* database;
  std::size_t visitors;

  friend std::ostream& operator<<(std::ostream& out, const Visited& visited) {
    return out << visited.database->name;
  }
};

/// What happened to the records inside. When nothing of a kind does, the test has proved little.
struct Happened {
  std::size_t added = 0, removed = 0, changed = 0, downloads = 0, redirects = 0, refusals = 0, not_found = 0;

  void Note(const tests::Lines& before, const tests::Lines& after, const Reply& reply) {
    if (after.size() > before.size()) ++added;
    if (after.size() < before.size()) ++removed;
    if (after.size() == before.size() && after != before) ++changed;
    if (reply.content_type.find("excel") != std::string::npos) ++downloads;
    if (reply.status == 303) ++redirects;
    if (reply.status == 403) ++refusals;
    if (reply.status == 404 || reply.message.find("no such record") != std::string::npos) ++not_found;
  }
};

/// By the environment: more visitors, and other ones.
std::size_t NumberFrom(const char* variable, std::size_t otherwise) {
  const char* const text = std::getenv(variable);
  return text == nullptr ? otherwise : std::strtoul(text, nullptr, 10);
}

class NonInterference : public testing::TestWithParam<Visited> {
 protected:
  /// False when the worlds differ, or something outside was changed.
  bool Visit(std::size_t seed) {
    const PageScript& script = PageScripts()[seed % PageScripts().size()];
    record::Chance chance(seed);
    this_.Begin(script, chance);
    that_.Begin(script, chance);
    const tests::Lines outside = this_.OutsideRecords();
    const tests::Lines other_outside = that_.OutsideRecords();
    HostileVisitor visitor(chance);
    for (std::size_t step = 0; step < kRequests; ++step) {
      const HostileRequest request = visitor.Next();
      SCOPED_TRACE(std::string(script.name) + ", seed " + std::to_string(seed) + ", request " +
                   std::to_string(step) + "\n" + Described(request));
      const tests::Lines before = this_.InsideRecords();
      const Reply reply = this_.Send(request);
      const Reply other_reply = that_.Send(request);
      Compare(reply, other_reply);
      EXPECT_EQ(this_.InsideRecords(), that_.InsideRecords());
      EXPECT_EQ(this_.OutsideRecords(), outside);
      EXPECT_EQ(that_.OutsideRecords(), other_outside);
      if (HasFailure()) return false;
      happened_.Note(before, this_.InsideRecords(), reply);
      visitor.Learn(reply.body);
    }
    return true;
  }

  World this_{*GetParam().database, Outside::kThis};
  World that_{*GetParam().database, Outside::kThat};
  Happened happened_;

 private:
  static void Compare(const Reply& reply, const Reply& other) {
    EXPECT_EQ(reply.status, other.status);
    EXPECT_EQ(reply.content_type, other.content_type);
    EXPECT_EQ(reply.headers, other.headers);
    EXPECT_EQ(reply.message, other.message);
    EXPECT_EQ(reply.body, other.body);
  }
};

TEST_P(NonInterference, NothingOutsideShowsAndNothingOutsideChanges) {
  const std::size_t first = NumberFrom("DRALO_FIRST_VISITOR", 1);
  const std::size_t visitors = NumberFrom("DRALO_VISITORS", GetParam().visitors);
  for (std::size_t seed = first; seed < first + visitors; ++seed) {
    if (!Visit(seed)) return;
  }
  EXPECT_GT(happened_.added, 0U);
  EXPECT_GT(happened_.removed, 0U);
  EXPECT_GT(happened_.changed, 0U);
  EXPECT_GT(happened_.redirects, 0U);
  EXPECT_GT(happened_.refusals, 0U);
  EXPECT_GT(happened_.not_found, 0U);
  EXPECT_GT(happened_.downloads, 0U);
}

INSTANTIATE_TEST_SUITE_P(Databases, NonInterference,
                         testing::Values(Visited{&tests::kSqlite, 40}, Visited{&tests::kPostgreSql, 6},
                                         Visited{&tests::kMariaDb, 6}),
                         [](const auto& visited) { return visited.param.database->name; });

}  // namespace
}  // namespace dralo::security
