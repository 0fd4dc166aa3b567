#pragma once

#include "dralo/page_context.h"

namespace dralo::php {

/// The request being served and its response; the same for all views of a page. Made when it is first asked
/// for.
platform::PageContext& CurrentPage();

/// Called after the last object of the request is gone.
void ForgetPage() noexcept;

}  // namespace dralo::php
