#include "component/db_view.h"
#include "hosts/php/errors.h"
#include "hosts/php/handed_page.h"
#include "hosts/php/hidden_parameter.h"
#include "hosts/php/indexed_property.h"
#include "hosts/php/page.h"
#include "hosts/php/plain_method.h"
#include "hosts/php/property_rows.h"
#include "hosts/php/values.h"

namespace dralo::php {
namespace {

using component::DbView;

void BindToPage(DbView& view, HandedPage& page) {
  if (view.HasAnswered()) {
    throw ScriptError{zend_ce_error, "Cannot bind Dralo\\DbView to a page after it has answered on one"};
  }
  if (page.HasEnded()) {
    throw ScriptError{zend_ce_error, "Cannot bind Dralo\\DbView to a Dralo\\Page that has ended"};
  }
  view.OnStartPage(page.Keep());
}

void OnStartPage(INTERNAL_FUNCTION_PARAMETERS) {
  zend_object* page;
  ZEND_PARSE_PARAMETERS_START(1, 1)
  Z_PARAM_OBJ_OF_CLASS(page, page_class.entry)
  ZEND_PARSE_PARAMETERS_END();
  EnterCpp(Entry::kChanges,
           [&] { BindToPage(NativeAs<DbView>(Z_OBJ_P(ZEND_THIS)), NativeAs<HandedPage>(page)); });
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

void AddEditLookup(INTERNAL_FUNCTION_PARAMETERS) {
  zend_string* field_name;
  zend_string* lookup_table;
  zend_string* link_field;
  zend_string* display_field;
  zend_string* order_by;
  bool allow_nulls;
  ZEND_PARSE_PARAMETERS_START(6, 6)
  Z_PARAM_STR(field_name)
  Z_PARAM_STR(lookup_table)
  Z_PARAM_STR(link_field)
  Z_PARAM_STR(display_field)
  Z_PARAM_STR(order_by)
  Z_PARAM_BOOL(allow_nulls)
  ZEND_PARSE_PARAMETERS_END();
  EnterCpp(Entry::kChanges, [&] {
    NativeAs<DbView>(Z_OBJ_P(ZEND_THIS))
        .AddEditLookup(View(field_name), View(lookup_table), View(link_field), View(display_field),
                       View(order_by), allow_nulls);
  });
}

void EditLookupAsString(INTERNAL_FUNCTION_PARAMETERS) {
  zend_string* field_name;
  ZEND_PARSE_PARAMETERS_START(1, 1)
  Z_PARAM_STR(field_name)
  ZEND_PARSE_PARAMETERS_END();
  EnterCpp(Entry::kReads, [&] {
    PutText(NativeAs<DbView>(Z_OBJ_P(ZEND_THIS)).EditLookupAsString(View(field_name)), return_value);
  });
}

void AddGarbageRoots(const DbView& view, zend_get_gc_buffer* roots) {
  const settings::Settings& settings = view.GetSettings();
  for (const auto& handler : {&settings.OnSave, &settings.OnSaved, &settings.OnDelete})
    AddGarbageRoot(*handler, roots);
  AddGarbageRoot(settings.TokenCallback, roots);
  const auto* page = dynamic_cast<const HandedPage*>(view.KeptPage().get());
  if (page != nullptr && view.KeptPage().use_count() == 1)
    zend_get_gc_buffer_add_obj(roots, page->ScriptObject());
}

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(q_html_table_arginfo, 0, 2, IS_VOID, 0)
ZEND_ARG_TYPE_INFO(0, ConnectionString, IS_STRING, 0)
ZEND_ARG_TYPE_INFO(0, TableName, IS_STRING, 0)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(add_edit_lookup_arginfo, 0, 6, IS_VOID, 0)
ZEND_ARG_TYPE_INFO(0, FieldName, IS_STRING, 0)
ZEND_ARG_TYPE_INFO(0, LookupTable, IS_STRING, 0)
ZEND_ARG_TYPE_INFO(0, LinkField, IS_STRING, 0)
ZEND_ARG_TYPE_INFO(0, DisplayField, IS_STRING, 0)
ZEND_ARG_TYPE_INFO(0, OrderBy, IS_STRING, 0)
ZEND_ARG_TYPE_INFO(0, AllowNulls, _IS_BOOL, 0)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(edit_lookup_as_string_arginfo, 0, 1, IS_STRING, 0)
ZEND_ARG_TYPE_INFO(0, FieldName, IS_STRING, 0)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(on_start_page_arginfo, 0, 1, IS_VOID, 0)
ZEND_ARG_OBJ_INFO(0, Page, Dralo\\Page, 0)
ZEND_END_ARG_INFO()

// clang-format off
const zend_function_entry kMethods[] = {
    SCRIPT_FUNCTION("OnStartPage", OnStartPage, on_start_page_arginfo, ZEND_ACC_PUBLIC)
    PLAIN_METHOD(DbView, WriteHtmlTable)
    PLAIN_METHOD(DbView, ReceivePost)
    SCRIPT_FUNCTION("QHtmlTable", QHtmlTable, q_html_table_arginfo, ZEND_ACC_PUBLIC)
    SCRIPT_FUNCTION("AddEditLookup", AddEditLookup, add_edit_lookup_arginfo, ZEND_ACC_PUBLIC)
    SCRIPT_FUNCTION("EditLookupAsString", EditLookupAsString, edit_lookup_as_string_arginfo, ZEND_ACC_PUBLIC)
    ZEND_FE_END};
// clang-format on

}  // namespace

ScriptClass db_view_class = {
    .name = "Dralo\\DbView",
    .methods = kMethods,
    .identifier = "Dralo.DbView",
    .start_page = [](platform::Object& view) { static_cast<DbView&>(view).OnStartPage(CurrentPage()); },
    .end_page = [](platform::Object& view) { static_cast<DbView&>(view).OnEndPage(); },
    .reading = Entry::kReads,
    .keeps_secrets =
        [](const platform::Object& view) { return static_cast<const DbView&>(view).GetSettings().Hardened; },
    .add_garbage_roots =
        [](const platform::Object& view, zend_get_gc_buffer* roots) {
          AddGarbageRoots(static_cast<const DbView&>(view), roots);
        },
    .declare =
        [](ScriptClass& registered) {
          NoServices nothing;
          const DbView fresh(nothing);
          DeclareRows<DbView>(registered, component::DbViewProperties(), &fresh);
          DeclareIndexedProperties(registered);
          HideInTraces(registered, "qhtmltable", 0);
        },
};

}  // namespace dralo::php
