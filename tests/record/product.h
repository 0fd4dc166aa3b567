#pragma once

#include "hosts/cpp/environment.h"
#include "hosts/cpp/page.h"
#include "platform/command.h"
#include "platform/connection.h"
#include "platform/page_context.h"
#include "platform/recordset.h"
#include "shell/db_connection.h"
#include "shell/db_view.h"
#include "shell/property.h"
#include "support/fake_page.h"

/// The product as a host sees it: the only place of this folder that names its namespaces and headers.
namespace dralo::record {

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
using shell::DBConnection;
using shell::DbView;
using shell::PropertyType;
using shell::PropertyValue;
using tests::FakePage;

using HostPage = host::Page;
using ViewProperty = shell::Property<DbView>;
using ConnectionProperty = shell::Property<DBConnection>;
using IndexedProperty = shell::IndexedProperty;

inline auto ViewProperties() { return shell::DbViewProperties(); }
inline auto ConnectionProperties() { return shell::DBConnectionProperties(); }
inline auto IndexedProperties() { return shell::DbViewIndexedProperties(); }

}  // namespace dralo::record
