#pragma once

#include <cstdint>

#include "platform/formatting.h"
#include "state/render.h"

namespace dralo::state {

/// The page size that the request asks for, else the page's; 20 when that is below 1. On a hardened page the
/// request may ask only for one that the page offers. Throws platform::Error when the request's is no 16-bit
/// number.
std::int16_t RequestedPageSize(const settings::Settings& settings, const RequestKeys& keys,
                               const platform::Formatting& formatting);

/// Whether this page has a records-per-page select: the property asks for it, its placement is "top" or
/// "bottom", and the page is a grid or shows more than one record.
bool ShowsRecordsPerPageSelect(const Render& render);

/// Takes page size, count, record number, SQL, view and order from the request into `render.view`; the order
/// on a hardened page is left to driver/requested_order.h. Throws platform::Error when a number in the
/// request is none.
void ReadRequestState(Render& render);

/// Moves render.view.current_record as the pressed paging button says, and sets render.view.bookmark. Without
/// a known count the button for the last page does nothing. Throws platform::Error when the bookmark is no
/// number.
void ApplyPagingButtons(Render& render);

/// The number of the first record of the last page when there are `records` records and `page_size` on a
/// page; 1 for an empty result.
std::int32_t FirstOfLastPage(std::int32_t records, std::int32_t page_size);

}  // namespace dralo::state
