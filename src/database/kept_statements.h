#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace dralo::database {

/// The prepared statements of a session that are not running; up to `capacity` that were used last are kept.
template <class Statement>
class KeptStatements {
 public:
  /// Has room for all from the start, so that Give() never fails.
  explicit KeptStatements(std::size_t capacity) : capacity_(capacity) { statements_.reserve(capacity); }

  /// The one that was used last of those that `fits` accepts; nullptr when there is none.
  std::unique_ptr<Statement> Take(std::predicate<const Statement&> auto fits) {
    const auto found = std::find_if(statements_.rbegin(), statements_.rend(),
                                    [&](const auto& statement) { return fits(*statement); });
    if (found == statements_.rend()) return nullptr;
    auto statement = std::move(*found);
    statements_.erase(std::next(found).base());
    return statement;
  }

  bool HasAny(std::predicate<const Statement&> auto fits) const {
    return std::ranges::any_of(statements_, [&](const auto& statement) { return fits(*statement); });
  }

  /// Drops the one that has not been used for the longest time when there are too many.
  void Give(std::unique_ptr<Statement> statement) noexcept {
    if (statements_.size() >= capacity_) statements_.erase(statements_.begin());
    statements_.push_back(std::move(statement));
  }

  void Forget(std::predicate<const Statement&> auto fits) noexcept {
    std::erase_if(statements_, [&](const auto& statement) { return fits(*statement); });
  }

  void Clear() noexcept { statements_.clear(); }

  /// In the order of their last use.
  const std::vector<std::unique_ptr<Statement>>& All() const { return statements_; }

 private:
  std::size_t capacity_;
  std::vector<std::unique_ptr<Statement>> statements_;
};

}  // namespace dralo::database
