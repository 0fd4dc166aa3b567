#include "hosts/php/errors.h"

#include <exception>
#include <new>

#include "dralo/error.h"
#include "hosts/php/thread_state.h"

namespace dralo::php {

zend_class_entry* exception_class = nullptr;

namespace {

Failure FailureBeingHandled() {
  try {
    throw;
  } catch (const platform::Error& error) {
    return {exception_class, std::string(error.Description()), error.Number(), error.SqlState(),
            error.Source()};
  } catch (const ScriptError& error) {
    return {error.raised_class, error.message};
  } catch (const std::exception& error) {
    return {zend_ce_error, error.what()};
  } catch (...) {
    return {zend_ce_error, "Unknown error"};
  }
}

void SetText(zend_object* object, const char* property, const std::string& text) {
  zend_update_property_stringl(exception_class, object, property, strlen(property), text.data(), text.size());
}

void ReturnText(INTERNAL_FUNCTION_PARAMETERS, const char* property) {
  ZEND_PARSE_PARAMETERS_NONE();
  zval scratch;
  zval* text =
      zend_read_property(exception_class, Z_OBJ_P(ZEND_THIS), property, strlen(property), true, &scratch);
  RETURN_COPY_DEREF(text);
}

void GetSqlState(INTERNAL_FUNCTION_PARAMETERS) { ReturnText(INTERNAL_FUNCTION_PARAM_PASSTHRU, "sqlState"); }

void GetSource(INTERNAL_FUNCTION_PARAMETERS) { ReturnText(INTERNAL_FUNCTION_PARAM_PASSTHRU, "source"); }

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(text_arginfo, 0, 0, IS_STRING, 0)
ZEND_END_ARG_INFO()

const zend_function_entry kMethods[] = {
    SCRIPT_FUNCTION("getSqlState", GetSqlState, text_arginfo, ZEND_ACC_PUBLIC | ZEND_ACC_FINAL)
        SCRIPT_FUNCTION("getSource", GetSource, text_arginfo, ZEND_ACC_PUBLIC | ZEND_ACC_FINAL) ZEND_FE_END};

void DeclareText(const char* property) {
  zval empty;
  ZVAL_EMPTY_STRING(&empty);
  zend_string* name = zend_string_init_interned(property, strlen(property), true);
  const zend_type type = ZEND_TYPE_INIT_MASK(MAY_BE_STRING);
  zend_declare_typed_property(exception_class, name, &empty, ZEND_ACC_PROTECTED, nullptr, type);
}

}  // namespace

void RegisterException() {
  zend_class_entry entry;
  INIT_CLASS_ENTRY(entry, "Dralo\\Exception", kMethods);
  exception_class = zend_register_internal_class_ex(&entry, spl_ce_RuntimeException);
  DeclareText("sqlState");
  DeclareText("source");
}

void RememberFailure() noexcept {
  try {
    ThisThread().failure = FailureBeingHandled();
  } catch (const std::bad_alloc&) {
    ThisThread().failure.raised_class = zend_ce_error;
    ThisThread().failure.message.clear();
  }
}

void ThrowRememberedFailure() {
  const Failure& failure = ThisThread().failure;
  if (failure.raised_class != exception_class) {
    zend_throw_error(failure.raised_class, "%s", failure.message.c_str());
    return;
  }
  zend_object* exception = zend_throw_exception(exception_class, failure.message.c_str(), failure.number);
  SetText(exception, "sqlState", failure.sqlstate);
  SetText(exception, "source", failure.source);
}

}  // namespace dralo::php
