#include "hosts/php/guard.h"
#include "hosts/php/indexed_property.h"
#include "hosts/php/native_object.h"
#include "hosts/php/page.h"
#include "hosts/php/property_rows.h"
#include "shell/db_view.h"

namespace dralo::php {
namespace {

using shell::DbView;

void WriteHtmlTable(INTERNAL_FUNCTION_PARAMETERS) {
  ZEND_PARSE_PARAMETERS_NONE();
  EnterCpp(Entry::kChanges, [&] { NativeAs<DbView>(Z_OBJ_P(ZEND_THIS)).WriteHtmlTable(); });
}

void QHtmlTable(INTERNAL_FUNCTION_PARAMETERS) {
  zend_string* connection_string;
  zend_string* table_name;
  ZEND_PARSE_PARAMETERS_START(2, 2)
  Z_PARAM_STR(connection_string)
  Z_PARAM_STR(table_name)
  ZEND_PARSE_PARAMETERS_END();
  EnterCpp(Entry::kChanges, [&] {
    NativeAs<DbView>(Z_OBJ_P(ZEND_THIS)).QHtmlTable(View(connection_string), View(table_name));
  });
}

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(write_html_table_arginfo, 0, 0, IS_VOID, 0)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(q_html_table_arginfo, 0, 2, IS_VOID, 0)
ZEND_ARG_TYPE_INFO(0, ConnectionString, IS_STRING, 0)
ZEND_ARG_TYPE_INFO(0, TableName, IS_STRING, 0)
ZEND_END_ARG_INFO()

const zend_function_entry kMethods[] = {
    ZEND_RAW_FENTRY("WriteHtmlTable", WriteHtmlTable, write_html_table_arginfo, ZEND_ACC_PUBLIC)
        ZEND_RAW_FENTRY("QHtmlTable", QHtmlTable, q_html_table_arginfo, ZEND_ACC_PUBLIC) ZEND_FE_END};

}  // namespace

ScriptClass db_view_class = {
    .name = "Dralo\\DbView",
    .methods = kMethods,
    .identifier = "Dralo.DbView",
    .start_page = [](platform::Object& view) { static_cast<DbView&>(view).OnStartPage(CurrentPage()); },
    .end_page = [](platform::Object& view) { static_cast<DbView&>(view).OnEndPage(); },
    .reading = Entry::kReads,
};

void RegisterDbView() {
  RegisterClass(db_view_class);
  DeclareRows<DbView>(db_view_class, shell::DbViewProperties());
  DeclareIndexedProperties(db_view_class);
}

}  // namespace dralo::php
