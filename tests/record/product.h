#pragma once

#include "component/db_connection.h"
#include "component/db_view.h"
#include "component/property.h"
#include "dralo/command.h"
#include "dralo/connection.h"
#include "dralo/page.h"
#include "dralo/page_context.h"
#include "dralo/recordset.h"
#include "hosts/cpp/environment.h"
#include "support/fake_page.h"

/// The product as a host sees it: the only place of this folder that names its namespaces and headers.
namespace dralo::record {

using component::DBConnection;
using component::DbView;
using component::PropertyType;
using component::PropertyValue;
using host::Environment;
using platform::Command;
using platform::CommandType;
using platform::Connection;
using platform::Create;
using platform::CursorLocation;
using platform::CursorType;
using platform::LockType;
using platform::ObjectPtr;
using platform::Own;
using platform::PageContext;
using platform::Recordset;
using platform::RequestField;
using platform::Variant;
using tests::FakePage;

using HostPage = dralo::Page;
using ViewProperty = component::Property<DbView>;
using ConnectionProperty = component::Property<DBConnection>;
using IndexedProperty = component::IndexedProperty;

inline auto ViewProperties() { return component::DbViewProperties(); }
inline auto ConnectionProperties() { return component::DBConnectionProperties(); }
inline auto IndexedProperties() { return component::DbViewIndexedProperties(); }

}  // namespace dralo::record
