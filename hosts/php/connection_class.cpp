#include "hosts/php/hidden_parameter.h"
#include "hosts/php/plain_method.h"
#include "hosts/php/property_rows.h"
#include "hosts/php/statement_options.h"

namespace dralo::php {
namespace {

using platform::Connection;

void Open(INTERNAL_FUNCTION_PARAMETERS) {
  zend_string* connection_string;
  zend_string* user = ZSTR_EMPTY_ALLOC();
  zend_string* password = ZSTR_EMPTY_ALLOC();
  zend_long options = -1;
  ZEND_PARSE_PARAMETERS_START(1, 4)
  Z_PARAM_STR(connection_string)
  Z_PARAM_OPTIONAL
  Z_PARAM_STR(user)
  Z_PARAM_STR(password)
  Z_PARAM_LONG(options)
  ZEND_PARSE_PARAMETERS_END();
  EnterCpp(Entry::kChanges, [&] {
    NativeAs<Connection>(Z_OBJ_P(ZEND_THIS))
        .Open(View(connection_string), View(user), View(password), static_cast<int>(options));
  });
}

void Execute(INTERNAL_FUNCTION_PARAMETERS) {
  zend_string* command_text;
  zval* records_affected = nullptr;
  zend_long options = -1;
  ZEND_PARSE_PARAMETERS_START(1, 3)
  Z_PARAM_STR(command_text)
  Z_PARAM_OPTIONAL
  Z_PARAM_ZVAL(records_affected)
  Z_PARAM_LONG(options)
  ZEND_PARSE_PARAMETERS_END();
  if (!AreStatementOptions(options, 3)) RETURN_THROWS();
  std::int64_t affected = -1;
  const bool executed = EnterCpp(Entry::kChanges, [&] {
    auto& connection = NativeAs<Connection>(Z_OBJ_P(ZEND_THIS));
    const auto rows = connection.Execute(View(command_text), &affected, static_cast<int>(options));
    PutObject(recordset_class, rows, return_value);
  });
  if (executed && records_affected != nullptr) ZEND_TRY_ASSIGN_REF_LONG(records_affected, affected);
}

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(open_arginfo, 0, 1, IS_VOID, 0)
ZEND_ARG_TYPE_INFO(0, ConnectionString, IS_STRING, 0)
ZEND_ARG_TYPE_INFO_WITH_DEFAULT_VALUE(0, UserID, IS_STRING, 0, "\"\"")
ZEND_ARG_TYPE_INFO_WITH_DEFAULT_VALUE(0, Password, IS_STRING, 0, "\"\"")
ZEND_ARG_TYPE_INFO_WITH_DEFAULT_VALUE(0, Options, IS_LONG, 0, "-1")
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_OBJ_INFO_EX(execute_arginfo, 0, 1, Dralo\\Recordset, 0)
ZEND_ARG_TYPE_INFO(0, CommandText, IS_STRING, 0)
ZEND_ARG_INFO_WITH_DEFAULT_VALUE(1, RecordsAffected, "null")
ZEND_ARG_TYPE_INFO_WITH_DEFAULT_VALUE(0, Options, IS_LONG, 0, "-1")
ZEND_END_ARG_INFO()

// clang-format off
const zend_function_entry kMethods[] = {
    SCRIPT_FUNCTION("Open", Open, open_arginfo, ZEND_ACC_PUBLIC)
    SCRIPT_FUNCTION("Execute", Execute, execute_arginfo, ZEND_ACC_PUBLIC)
    PLAIN_METHOD(Connection, Close)
    ZEND_FE_END};
// clang-format on

}  // namespace

ScriptClass connection_class = {
    .name = "Dralo\\Connection",
    .methods = kMethods,
    .identifier = "ADODB.Connection",
    .end_page = [](platform::Object& connection) { static_cast<Connection&>(connection).Close(); },
    .declare =
        [](ScriptClass& registered) {
          DeclareRows<Connection>(registered, component::ConnectionProperties());
          HideInTraces(registered, "open", 0);
          HideInTraces(registered, "open", 2);
        },
};

}  // namespace dralo::php
