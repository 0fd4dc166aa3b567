#pragma once

#include <string_view>

#include "database/base_table.h"
#include "database/postgresql/description.h"
#include "database/postgresql/link.h"

namespace dralo::database::postgresql {

/// The table that rows of the query `text` can be written to. Throws platform::Error, which says why, when
/// there is none.
BaseTable FindBaseTable(Link& link, const Description& description, std::string_view text);

}  // namespace dralo::database::postgresql
