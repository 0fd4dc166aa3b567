#pragma once

// All that programs make pages with.

#include "dralo/change.h"
#include "dralo/command.h"
#include "dralo/connection.h"
#include "dralo/date_time.h"
#include "dralo/db_connection.h"
#include "dralo/db_view.h"
#include "dralo/environment.h"
#include "dralo/error.h"
#include "dralo/field.h"
#include "dralo/object.h"
#include "dralo/page.h"
#include "dralo/page_context.h"
#include "dralo/page_stream.h"
#include "dralo/property_owner.h"
#include "dralo/recordset.h"
#include "dralo/request.h"
#include "dralo/response.h"
#include "dralo/site.h"
#include "dralo/type_code.h"
#include "dralo/variant.h"
