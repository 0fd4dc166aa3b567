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

/// How a query stands in the statement that is sent.
enum class Form {
  kPlain,   ///< As it is.
  kPage,    ///< Limited by two more parameters, the number of rows, perhaps Null, and the offset.
  kOneRow,  ///< Limited to its first row.
};

/// A statement of a page and what is known of it.
struct Statement {
  std::string text;  ///< As the page gave it, for messages.
  StatementKind kind;
  Form form = Form::kPlain;
  std::string numbered;  ///< With "$1" for "?".
  int parameters = 0;
  std::shared_ptr<const Description> description = {};  ///< Once the server has told of it.
  bool came_again = false;
  std::string name = {};      ///< That the server knows it by; empty when it is not kept there.
  std::int64_t prepared = 0;  ///< The number of the connection that it is prepared on; 0 for none.

  /// What is sent to the server.
  std::string ToSend() const;

  bool IsPreparedOn(const Link& link) const { return prepared != 0 && prepared == link.Number(); }
};

/// The queries that a session ran last. The server keeps those prepared that came more than once.
class StatementCache {
 public:
  using Key = std::string;

  /// Equal for statements that can stand in for each other: the types of the parameters count too.
  static Key KeyOf(std::string_view text, Form form, const Parameters& parameters);

  /// nullptr when none is kept.
  std::shared_ptr<Statement> Find(const Key& key);

  /// A query that came once goes before one that came again, however many came once. Returns the statement
  /// that goes, if the server knows it.
  std::shared_ptr<Statement> Keep(const Key& key, std::shared_ptr<Statement> statement);

  void Forget(const Key& key);

 private:
  /// A prepared statement takes memory of the server too.
  static constexpr std::size_t kCapacity = 32;

  struct Entry {
    Key key;
    std::shared_ptr<Statement> statement;
  };

  std::list<Entry> entries_;  ///< In the order of their last use.
};

}  // namespace dralo::database::postgresql
