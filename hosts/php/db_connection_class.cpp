#include "component/db_connection.h"
#include "hosts/php/page.h"
#include "hosts/php/property_rows.h"

namespace dralo::php {
namespace {

using component::DBConnection;

}  // namespace

ScriptClass db_connection_class = {
    .name = "Dralo\\DBConnection",
    .identifier = "Dralo.DBConnection",
    .start_page =
        [](platform::Object& connection) {
          static_cast<DBConnection&>(connection).OnStartPage(CurrentPage());
        },
    .end_page = [](platform::Object& connection) { static_cast<DBConnection&>(connection).OnEndPage(); },
    .reading = Entry::kReads,
    .declare =
        [](ScriptClass& registered) {
          DeclareRows<DBConnection>(registered, component::DBConnectionProperties());
        },
};

}  // namespace dralo::php
