#pragma once

#include "record/chance.h"
#include "record/journal.h"
#include "record/page_script.h"
#include "record/shop_tables.h"

namespace dralo::record {

/// Uses the database objects as a page script does without a view: statements, rows, changes.
void RunDatabaseScript(const Stage& stage, const ShopTable& table, Chance& chance, Journal& journal);

}  // namespace dralo::record
