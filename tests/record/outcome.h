#pragma once

#include "record/journal.h"
#include "record/product.h"

namespace dralo::record {

/// Everything that can be read of a view.
void NoteOutcome(Journal& journal, DbView& view);

}  // namespace dralo::record
