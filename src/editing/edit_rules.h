#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dralo/date_time.h"
#include "dralo/variant.h"
#include "editing/query_schema.h"
#include "state/render.h"

namespace dralo::editing {

/// A day that a rule names: a date, or a number of days from today.
struct DayLimit {
  std::optional<platform::DateTime> day = std::nullopt;  ///< Nothing: counted from today.
  int days_from_today = 0;

  platform::DateTime DayAt(const platform::DateTime& today) const;
};

/// What EditRules asks of one field.
struct EditRules {
  bool is_required = false;
  bool is_email = false;
  bool is_url = false;
  bool is_day = false;   ///< The control holds a day in ISO form.
  std::string min = "";  ///< Plain decimals; "" for no limit.
  std::string max = "";
  std::optional<std::size_t> min_length = std::nullopt;  ///< In characters.
  std::optional<std::size_t> max_length = std::nullopt;
  std::string pattern = "";  ///< A regular expression for the whole text; "" for none.
  std::optional<DayLimit> first_day = std::nullopt;
  std::optional<DayLimit> last_day = std::nullopt;
};

/// Reads a list of rules, such as "required,min=0,max=100". A comma inside a pattern belongs to it unless a
/// rule follows. Throws platform::Error, which names the item, when an item is no rule.
EditRules ReadEditRules(std::string_view text);

/// The rules of the column at that position, from 1, of the statement of the form. Throws as above.
EditRules RulesOfColumn(const settings::Settings& settings, int column);

/// Today by the clock of the server.
platform::DateTime Today();

/// Which rule a value breaks, as a message; "" when none. The value suits its field and was posted as `text`.
/// An empty text breaks no rule but "required". Throws platform::Error when the pattern is no regular
/// expression or takes too long.
std::string BrokenRule(const state::Render& render, const EditRules& rules, std::string_view text,
                       const platform::VariantView& value, const platform::DateTime& today);

}  // namespace dralo::editing
