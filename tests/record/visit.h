#pragma once

#include <vector>

#include "record/plan.h"
#include "record/product.h"

namespace dralo::record {

/// What a browser, or somebody with bad intentions, asks of a page with these views.
struct Visit {
  std::vector<RequestField> query;
  std::vector<RequestField> form;
};

Visit MakeVisit(const std::vector<Plan>& plans, Chance& chance);

}  // namespace dralo::record
