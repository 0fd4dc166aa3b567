#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

#include "database/kept_statements.h"

namespace dralo::database {

/// Which text is run for that of a page.
enum class Form {
  kPlain,    ///< The same text.
  kLimited,  ///< With two more parameters, LIMIT and OFFSET.
};

/// The prepared statements of a session that are not running, up to `kMost` that were used last; some take
/// memory on the server too. A `Statement` has a Text(), which is that of the page, and a GetForm(); it says
/// by RefusesLimit() that its text is known not to take a limit.
template <class Statement, std::size_t kMost>
class StatementCache {
 public:
  static constexpr std::size_t kCapacity = kMost;

  /// Longer statements are not kept.
  static constexpr std::size_t kMaxTextBytes = 32'768;

  /// The statement for a text, or nullptr when none is kept.
  std::unique_ptr<Statement> Take(std::string_view text, Form form) {
    return kept_.Take([&](const Statement& kept) { return kept.GetForm() == form && kept.Text() == text; });
  }

  /// Whether a plain statement is kept for the text and known not to take a limit.
  bool RefusesLimit(std::string_view text) const {
    return kept_.HasAny([&](const Statement& kept) { return kept.RefusesLimit() && kept.Text() == text; });
  }

  /// Takes back a statement that has ended.
  void Give(std::unique_ptr<Statement> statement) noexcept {
    if (statement->Text().size() <= kMaxTextBytes) kept_.Give(std::move(statement));
  }

  /// Drops all that are kept for a text.
  void Forget(std::string_view text) noexcept {
    kept_.Forget([&](const Statement& kept) { return kept.Text() == text; });
  }

  void Clear() noexcept { kept_.Clear(); }

 private:
  KeptStatements<Statement> kept_{kCapacity};
};

}  // namespace dralo::database
