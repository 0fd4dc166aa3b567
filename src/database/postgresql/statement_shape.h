#pragma once

#include "database/postgresql/statement.h"
#include "database/select_shape.h"

namespace dralo::database::postgresql {

/// What the words of a query say about it, if its rows are those of its tables, each with values that are the
/// same however the server reads them. Otherwise, and where the words cannot be told from texts, a shape
/// without anything. Its names are a part of the query's text.
SelectShape ShapeOfRows(const Statement& query);

}  // namespace dralo::database::postgresql
