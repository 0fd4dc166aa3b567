#include "editing/derived_table.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "text/ascii.h"
#include "text/sql_piece.h"

namespace dralo::editing {
namespace {

/// Words that may follow an order at the end. They make the order part of what the statement yields, or would
/// be cut off with it, so the order stays.
constexpr auto kBehindOrder = std::to_array<std::string_view>(
    {"LIMIT", "OFFSET", "FETCH", "FOR", "INTO", "PROCEDURE", "LOCK", "OPTION", "UNION"});

/// Finds where the part of a statement ends that can stand in brackets.
class End {
 public:
  explicit End(std::string_view sql) {
    for (std::size_t at = 0; at < sql.size();) {
      const std::string_view piece = text::FirstSqlPiece(sql.substr(at));
      if (!text::IsSqlSpace(piece)) Take(piece, at);
      at += piece.size();
    }
    if (!is_semicolon_) semicolon_ = sql.size();
    position_ = has_top_ ? semicolon_ : std::min(order_, semicolon_);
  }

  std::size_t Position() const { return position_; }

 private:
  void Take(std::string_view piece, std::size_t at) {
    is_semicolon_ = piece == ";";
    if (is_semicolon_) semicolon_ = at;
    if (piece == "(") ++depth_;
    if (piece == ")") --depth_;
    if (depth_ > 0) return;
    has_top_ = has_top_ || text::EqualAscii(piece, "TOP");
    if (was_order_ && text::EqualAscii(piece, "BY")) order_ = order_word_;
    was_order_ = text::EqualAscii(piece, "ORDER");
    if (was_order_) order_word_ = at;
    const auto is_piece = [&](std::string_view word) { return text::EqualAscii(piece, word); };
    if (std::ranges::any_of(kBehindOrder, is_piece)) order_ = std::string_view::npos;
  }

  int depth_ = 0;
  bool has_top_ = false;  ///< A limit at the beginning of the statement.
  bool was_order_ = false;
  bool is_semicolon_ = false;
  std::size_t order_word_ = 0;
  std::size_t order_ = std::string_view::npos;
  std::size_t semicolon_ = 0;
  std::size_t position_ = 0;
};

}  // namespace

platform::BoundStatement DerivedTable(std::string_view sql, settings::Parameters parameters) {
  const std::string_view kept = sql.substr(0, End(sql).Position());
  if (kept.size() < sql.size()) {
    parameters = parameters.first(std::min(parameters.size(), text::CountSqlParameters(kept)));
  }
  // The line feed ends a comment at the end of the statement.
  return {.text = "(" + std::string(kept) + "\n) " + std::string(kDerivedTable),
          .parameters = {parameters.begin(), parameters.end()}};
}

}  // namespace dralo::editing
