#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue.h"

namespace serve {

/// What all pages have around their contents.
struct Frame {
  std::string database;  ///< The name of the database.
  TableList tables;
  bool can_edit = false;
};

/// The page up to its contents. `current` is the table it shows.
std::string PageStart(const Frame& frame, std::string_view title,
                      const std::optional<TableName>& current = std::nullopt);

/// What follows the contents.
inline constexpr std::string_view kPageEnd = "\n</main>\n</body>\n</html>\n";

/// A complete page. `current` is the table it shows; `content` is markup, in pieces.
std::string WholePage(const Frame& frame, std::string_view title,
                      std::initializer_list<std::string_view> content,
                      const std::optional<TableName>& current = std::nullopt);

/// The name of the table for people.
std::string Label(const TableName& table);

/// A page with a title and a sentence, both as text, and a link to the tables.
std::string Message(const Frame& frame, std::string_view title, std::string_view sentence);

}  // namespace serve
