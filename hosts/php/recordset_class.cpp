#include "hosts/php/plain_method.h"
#include "hosts/php/property_rows.h"
#include "hosts/php/statement_options.h"

namespace dralo::php {
namespace {

using platform::Command;
using platform::Connection;
using platform::CursorType;
using platform::LockType;
using platform::Recordset;

/// Whether the argument is one of the numbers of an enumeration; raises ValueError when it is not.
template <class Enum>
bool IsBetween(Enum lowest, Enum highest, zend_long number, std::uint32_t argument) {
  if (number >= static_cast<zend_long>(lowest) && number <= static_cast<zend_long>(highest)) return true;
  zend_argument_value_error(argument, "must be between %d and %d", static_cast<int>(lowest),
                            static_cast<int>(highest));
  return false;
}

void Open(INTERNAL_FUNCTION_PARAMETERS) {
  zend_object* command = nullptr;
  zend_string* statement = nullptr;
  zend_object* connection = nullptr;
  zend_long cursor = static_cast<zend_long>(CursorType::kForwardOnly);
  zend_long lock = static_cast<zend_long>(LockType::kReadOnly);
  zend_long options = -1;
  ZEND_PARSE_PARAMETERS_START(1, 5)
  Z_PARAM_OBJ_OF_CLASS_OR_STR(command, command_class.entry, statement)
  Z_PARAM_OPTIONAL
  Z_PARAM_OBJ_OF_CLASS_OR_NULL(connection, connection_class.entry)
  Z_PARAM_LONG(cursor)
  Z_PARAM_LONG(lock)
  Z_PARAM_LONG(options)
  ZEND_PARSE_PARAMETERS_END();
  if (command == nullptr && connection == nullptr) {
    zend_argument_value_error(2, "must be a connection when the source is a statement");
    RETURN_THROWS();
  }
  if (command != nullptr && connection != nullptr) {
    zend_argument_value_error(2,
                              "must be null when the source is a command, which has a connection of its own");
    RETURN_THROWS();
  }
  if (!IsBetween(CursorType::kUnspecified, CursorType::kStatic, cursor, 3)) RETURN_THROWS();
  if (!IsBetween(LockType::kUnspecified, LockType::kBatchOptimistic, lock, 4)) RETURN_THROWS();
  if (!AreStatementOptions(options, 5)) RETURN_THROWS();
  EnterCpp(Entry::kChanges, [&] {
    auto& recordset = NativeAs<Recordset>(Z_OBJ_P(ZEND_THIS));
    const auto cursor_type = static_cast<CursorType>(cursor);
    const auto lock_type = static_cast<LockType>(lock);
    const auto known = static_cast<int>(options);
    if (command != nullptr) return recordset.Open(NativeAs<Command>(command), cursor_type, lock_type, known);
    recordset.Open(View(statement), std::static_pointer_cast<Connection>(NativeOf(connection)), cursor_type,
                   lock_type, known);
  });
}

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(open_arginfo, 0, 1, IS_VOID, 0)
ZEND_ARG_OBJ_TYPE_MASK(0, Source, Dralo\\Command, MAY_BE_STRING, NULL)
ZEND_ARG_OBJ_INFO_WITH_DEFAULT_VALUE(0, ActiveConnection, Dralo\\Connection, 1, "null")
ZEND_ARG_TYPE_INFO_WITH_DEFAULT_VALUE(0, CursorType, IS_LONG, 0, "0")
ZEND_ARG_TYPE_INFO_WITH_DEFAULT_VALUE(0, LockType, IS_LONG, 0, "1")
ZEND_ARG_TYPE_INFO_WITH_DEFAULT_VALUE(0, Options, IS_LONG, 0, "-1")
ZEND_END_ARG_INFO()

// clang-format off
const zend_function_entry kMethods[] = {
    SCRIPT_FUNCTION("Open", Open, open_arginfo, ZEND_ACC_PUBLIC)
    PLAIN_METHOD(Recordset, MoveNext)
    PLAIN_METHOD(Recordset, AddNew)
    PLAIN_METHOD(Recordset, Update)
    PLAIN_METHOD(Recordset, CancelUpdate)
    PLAIN_METHOD(Recordset, Close)
    ZEND_FE_END};
// clang-format on

}  // namespace

ScriptClass recordset_class = {
    .name = "Dralo\\Recordset",
    .methods = kMethods,
    .identifier = "ADODB.Recordset",
    .end_page = [](platform::Object& recordset) { static_cast<Recordset&>(recordset).Close(); },
    .declare =
        [](ScriptClass& registered) {
          DeclareRows<Recordset>(registered, component::RecordsetProperties());
          DeclareList(registered, component::kFieldsProperty, fields_class);
        },
};

}  // namespace dralo::php
