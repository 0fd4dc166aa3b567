#include "hosts/php/script_function.h"

#include <memory>
#include <string>
#include <variant>

#include "dralo/error.h"
#include "dralo/token_callback.h"
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

/// Takes the script's exception from the engine and returns its message.
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

/// Runs `call` as CallPhp() does. What the script throws becomes an Error.
template <class Body>
void CallScript(Body call) {
  try {
    CallPhp(call);
  } catch (const HostAbort& abort) {
    if (!HasThrown(abort)) throw;
    throw platform::Error(TakeMessage());
  }
}

void CallHandler(KeptValue& callable, platform::Change& change) {
  const ScriptMayChange permission;
  const LentChange lent(change);
  CallScript([&] {
    zval argument;
    zval result;
    ZVAL_UNDEF(&result);
    ZVAL_OBJ(&argument, lent.NewScriptObject());
    call_user_function(nullptr, nullptr, callable.Get(), &result, 1, &argument);
    zval_ptr_dtor(&argument);
    zval_ptr_dtor(&result);
  });
}

/// What the function returned when it is a text, true or false; else Null.
platform::Variant TokenAnswer(const zval* result) {
  ZVAL_DEREF(result);
  if (Z_TYPE_P(result) == IS_STRING) return std::string(View(Z_STR_P(result)));
  if (Z_TYPE_P(result) == IS_TRUE || Z_TYPE_P(result) == IS_FALSE) return Z_TYPE_P(result) == IS_TRUE;
  return platform::Null();
}

platform::Variant CallForToken(KeptValue& callable, const platform::Variant& token) {
  const ScriptMayChange permission;
  const auto* text = std::get_if<std::string>(&token);
  zval result;
  ZVAL_UNDEF(&result);
  CallScript([&] {
    zval argument;
    ZVAL_NULL(&argument);
    if (text != nullptr) ZVAL_STRINGL(&argument, text->data(), text->size());
    call_user_function(nullptr, nullptr, callable.Get(), &result, 1, &argument);
    zval_ptr_dtor(&argument);
  });
  platform::Variant answer = TokenAnswer(&result);
  CallPhp([&] { zval_ptr_dtor(&result); });
  return answer;
}

/// The script's function that a handler or a callback of C++ calls.
class ScriptFunction {
 public:
  explicit ScriptFunction(const zval* callable) : callable_(std::make_shared<KeptValue>(callable)) {}
  virtual ~ScriptFunction() = default;
  ScriptFunction(const ScriptFunction&) = delete;
  ScriptFunction& operator=(const ScriptFunction&) = delete;

  const std::shared_ptr<KeptValue>& Callable() const { return callable_; }

 private:
  std::shared_ptr<KeptValue> callable_;
};

class ScriptHandler final : public ScriptFunction, public platform::ChangeHandler {
 public:
  explicit ScriptHandler(const zval* value)
      : ScriptFunction(value),
        ChangeHandler([callable = Callable()](platform::Change& change) { CallHandler(*callable, change); }) {
  }
};

class ScriptTokenCallback final : public ScriptFunction, public platform::TokenCallback {
 public:
  explicit ScriptTokenCallback(const zval* value)
      : ScriptFunction(value), TokenCallback([callable = Callable()](const platform::Variant& token) {
          return CallForToken(*callable, token);
        }) {}
};

}  // namespace

platform::ObjectPtr ToFunction(const zval* value, component::PropertyType type, std::string_view property) {
  if (Z_TYPE_P(value) == IS_NULL) return nullptr;
  bool is_callable = false;
  CallPhp([&] { is_callable = zend_is_callable(const_cast<zval*>(value), 0, nullptr); });
  if (!is_callable) {
    throw ScriptError{zend_ce_type_error,
                      "Dralo\\DbView::$" + std::string(property) + " must be a function or null"};
  }
  if (type == component::PropertyType::kHandler) return std::make_shared<ScriptHandler>(value);
  return std::make_shared<ScriptTokenCallback>(value);
}

zval* CallableOf(const platform::Object& kept) {
  const auto* script = dynamic_cast<const ScriptFunction*>(&kept);
  return script == nullptr ? nullptr : script->Callable()->Get();
}

void PutFunction(const platform::ObjectPtr& kept, zval* result) {
  zval* const callable = kept == nullptr ? nullptr : CallableOf(*kept);
  if (callable == nullptr) {
    ZVAL_NULL(result);
  } else {
    ZVAL_COPY(result, callable);
  }
}

}  // namespace dralo::php
