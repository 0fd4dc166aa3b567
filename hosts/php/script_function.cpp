#include "hosts/php/script_function.h"

#include <memory>
#include <string>

#include "dralo/error.h"
#include "hosts/php/change_class.h"
#include "hosts/php/errors.h"
#include "hosts/php/guard.h"
#include "hosts/php/kept_value.h"
#include "hosts/php/values.h"

namespace dralo::php {
namespace {

/// Whether the script's function ended with an exception of its own, not by exit() or a fatal error.
bool HasThrown(const HostAbort& abort) {
  return abort.reason == HostAbort::Reason::kPending && EG(exception) != nullptr &&
         !zend_is_unwind_exit(EG(exception)) && !zend_is_graceful_exit(EG(exception));
}

/// The message of the script's exception, which is over then.
std::string TakeMessage() {
  zval message;
  ZVAL_UNDEF(&message);
  zend_object* exception = EG(exception);
  GC_ADDREF(exception);
  zend_clear_exception();
  CallPhp([&] {
    zval slot;
    zend_class_entry* base = zend_get_exception_base(exception);
    ZVAL_COPY(&message, zend_read_property_ex(base, exception, ZSTR_KNOWN(ZEND_STR_MESSAGE), true, &slot));
  });
  const std::string text(Z_TYPE(message) == IS_STRING ? View(Z_STR(message)) : std::string_view());
  CallPhp([&] {
    zval_ptr_dtor(&message);
    OBJ_RELEASE(exception);
  });
  return text;
}

void Call(KeptValue& callable, platform::Change& change) {
  const ScriptMayChange permission;
  const LentChange lent(change);
  try {
    CallPhp([&] {
      zval argument;
      zval result;
      ZVAL_UNDEF(&result);
      ZVAL_OBJ(&argument, lent.NewScriptObject());
      call_user_function(nullptr, nullptr, callable.Get(), &result, 1, &argument);
      zval_ptr_dtor(&argument);
      zval_ptr_dtor(&result);
    });
  } catch (const HostAbort& abort) {
    if (!HasThrown(abort)) throw;
    throw platform::Error(TakeMessage());
  }
}

class ScriptHandler final : public platform::ChangeHandler {
 public:
  explicit ScriptHandler(std::shared_ptr<KeptValue> callable)
      : ChangeHandler([callable](platform::Change& change) { Call(*callable, change); }),
        callable_(std::move(callable)) {}

  zval* Callable() const { return callable_->Get(); }

 private:
  std::shared_ptr<KeptValue> callable_;
};

}  // namespace

platform::ObjectPtr ToHandler(const zval* value, std::string_view property) {
  if (Z_TYPE_P(value) == IS_NULL) return nullptr;
  bool is_callable = false;
  CallPhp([&] { is_callable = zend_is_callable(const_cast<zval*>(value), 0, nullptr); });
  if (!is_callable) {
    throw ScriptError{zend_ce_type_error,
                      "Dralo\\DbView::$" + std::string(property) + " must be a function or null"};
  }
  return std::make_shared<ScriptHandler>(std::make_shared<KeptValue>(value));
}

void PutHandler(const platform::ObjectPtr& handler, zval* result) {
  const auto* script = dynamic_cast<const ScriptHandler*>(handler.get());
  if (script == nullptr) {
    ZVAL_NULL(result);
  } else {
    ZVAL_COPY(result, script->Callable());
  }
}

}  // namespace dralo::php
