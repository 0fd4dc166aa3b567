#pragma once

#include "record/chance.h"

namespace dralo::record {

/// What a page sets for single columns. Templates name fields of several tables, so that some are unknown.
Texts CellTemplates();

/// Format functions of every kind with good and bad arguments.
Texts CellFunctions();

}  // namespace dralo::record
