#pragma once

#include "platform/variant.h"

namespace dralo {

using platform::Bytes;
using platform::BytesView;
using platform::Decimal;
using platform::DecimalView;
using platform::IsNull;
using platform::Null;
using platform::Own;
using platform::Variant;
using platform::VariantView;
using platform::View;

}  // namespace dralo
