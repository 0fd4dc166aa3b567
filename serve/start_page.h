#pragma once

#include <string>
#include <vector>

#include "schema.h"

namespace serve {

/// The tables and views of the database with their numbers of records, as markup.
std::string StartPage(const std::vector<CountedTable>& tables);

}  // namespace serve
