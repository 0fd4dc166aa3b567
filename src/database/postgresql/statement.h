#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>

#include "database/postgresql/description.h"
#include "database/postgresql/parameters.h"
#include "database/statement_kind.h"

namespace dralo::database::postgresql {

/// The form in which a query is sent.
enum class Form {
  kPlain,   ///< Unchanged.
  kPage,    ///< Limited by two more parameters, the number of rows, perhaps Null, and the offset.
  kFirst,   ///< Limited to Statement::rows of its first rows.
  kOneRow,  ///< Limited to its first row.
};

/// A statement of a page, and what is known about it.
struct Statement {
  std::string text;  ///< As the page gave it, for messages.
  StatementKind kind;
  Form form = Form::kPlain;
  std::string numbered;  ///< With "$1" and so on for each "?".
  int parameters = 0;
  std::int64_t rows = 0;
  std::string key_order = {};  ///< What follows its ORDER BY; see TableKeys::BehindOrder().
  std::shared_ptr<const Description> description = {};  ///< Set once the server has described it.
  bool came_again = false;
  std::string name = {};      ///< Under which the server knows it; empty when it is not kept there.
  std::int64_t prepared = 0;  ///< The number of the connection on which it is prepared; 0 for none.

  /// Set once the server has described it: its rows have one order, whatever plan the server makes.
  bool has_one_order = false;

  /// The same query for its first rows, as many as were wanted when it first came again.
  std::shared_ptr<Statement> first = {};

  /// The statement for that many of the first rows, without parameters, so that the server plans it only
  /// once; nullptr when it would be of no use.
  std::shared_ptr<Statement> FirstRows(std::int64_t wanted);

  /// Whether the server may plan it once for all pages: it would make the same plan for each. Queries with
  /// keys in their order are planned by the numbers of rows, which make a difference.
  bool MayKeepPlan() const {
    return !name.empty() && form == Form::kPage && parameters == 0 && key_order.empty() && has_one_order;
  }

  /// What is sent to the server.
  std::string ToSend() const;

  bool IsPreparedOn(const Link& link) const { return prepared != 0 && prepared == link.Number(); }
};

/// The queries that a session ran last. The server keeps those prepared that came more than once.
class StatementCache {
 public:
  using Key = std::string;

  /// Equal for statements that can replace each other: the types of the parameters count too.
  static Key KeyOf(std::string_view text, Form form, const Parameters& parameters);

  /// nullptr when none is kept.
  std::shared_ptr<Statement> Find(const Key& key);

  /// What kind of statement the text is, with whatever parameters. One that is kept need not be read again.
  StatementKind KindOf(std::string_view text) const;

  /// Keeps the query. If one must go, it is one that came only once rather than one that came again. Returns
  /// the statement that goes.
  std::shared_ptr<Statement> Keep(const Key& key, std::shared_ptr<Statement> statement);

  void Forget(const Key& key);

 private:
  /// A prepared statement takes memory on the server too.
  static constexpr std::size_t kCapacity = 32;

  struct Entry {
    Key key;
    std::shared_ptr<Statement> statement;
  };

  std::list<Entry> entries_;  ///< In the order of their last use.
};

}  // namespace dralo::database::postgresql
