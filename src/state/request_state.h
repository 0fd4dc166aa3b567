#pragma once

#include <cstdint>

#include "platform/formatting.h"
#include "state/render.h"

namespace dralo::state {

/// The page size that the request asks for, else the page's; below 1 it is 20. A hardened page takes only one
/// of those that it offers. Throws platform::Error when the request's is no 16-bit number.
std::int16_t RequestedPageSize(const settings::Settings& settings, const RequestKeys& keys,
                               const platform::Formatting& formatting);

/// Whether the records-per-page select is written on this page: asked for, placed "top" or "bottom", and the
/// page is a grid or shows more than one record.
bool ShowsRecordsPerPageSelect(const Render& render);

/// Takes page size, count, record number, SQL, view and order from the request into `render.view`; the order
/// of a hardened page is left to driver/requested_order.h. Throws platform::Error when a number of the
/// request is none.
void ReadRequestState(Render& render);

/// Moves render.view.current_record as the paging button that was pressed says, and sets
/// render.view.bookmark. For the last page the count must be known, else the page stays. Throws
/// platform::Error when the bookmark is no number.
void ApplyPagingButtons(Render& render);

/// The number of the first record of the last page when there are `records` records and `page_size` on a
/// page; 1 for an empty result.
std::int32_t FirstOfLastPage(std::int32_t records, std::int32_t page_size);

}  // namespace dralo::state
