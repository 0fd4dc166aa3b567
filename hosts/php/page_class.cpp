#include <memory>
#include <optional>
#include <string>

#include "hosts/php/classes.h"
#include "hosts/php/errors.h"
#include "hosts/php/given_request.h"
#include "hosts/php/guard.h"
#include "hosts/php/handed_page.h"
#include "hosts/php/native_object.h"
#include "hosts/php/script_request.h"
#include "hosts/php/values.h"

namespace dralo::php {
namespace {

constexpr std::string_view kUrlEncoded = "application/x-www-form-urlencoded";

void Become(zend_object* object, std::unique_ptr<platform::Request> request) {
  FromZend(object)->native = std::make_shared<HandedPage>(object, std::move(request));
}

void Construct(INTERNAL_FUNCTION_PARAMETERS) {
  zend_string* script_name;
  zend_string* query = ZSTR_EMPTY_ALLOC();
  zend_string* body = ZSTR_EMPTY_ALLOC();
  zend_string* content_type = nullptr;
  HashTable* server = const_cast<HashTable*>(&zend_empty_array);
  ZEND_PARSE_PARAMETERS_START(1, 5)
  Z_PARAM_STR(script_name)
  Z_PARAM_OPTIONAL
  Z_PARAM_STR(query)
  Z_PARAM_STR(body)
  Z_PARAM_STR(content_type)
  Z_PARAM_ARRAY_HT(server)
  ZEND_PARSE_PARAMETERS_END();
  EnterCpp(Entry::kReads, [&] {
    zend_object* object = Z_OBJ_P(ZEND_THIS);
    if (FromZend(object)->native) throw ScriptError{zend_ce_error, "Cannot construct Dralo\\Page twice"};
    const std::string_view type = content_type == nullptr ? kUrlEncoded : View(content_type);
    Become(object, std::make_unique<GivenRequest>(View(script_name), View(query), View(body), type, server));
  });
}

void FromGlobals(INTERNAL_FUNCTION_PARAMETERS) {
  zend_string* script_name = nullptr;
  ZEND_PARSE_PARAMETERS_START(0, 1)
  Z_PARAM_OPTIONAL
  Z_PARAM_STR_OR_NULL(script_name)
  ZEND_PARSE_PARAMETERS_END();
  object_init_ex(return_value, page_class.entry);
  EnterCpp(Entry::kReads, [&] {
    std::optional<std::string> address;
    if (script_name != nullptr) address = View(script_name);
    Become(Z_OBJ_P(return_value), std::make_unique<ScriptRequest>(std::move(address)));
  });
}

void SendTo(INTERNAL_FUNCTION_PARAMETERS) {
  zend_fcall_info receiver = empty_fcall_info;
  zend_fcall_info_cache cache = empty_fcall_info_cache;
  ZEND_PARSE_PARAMETERS_START(1, 1)
  Z_PARAM_FUNC_OR_NULL(receiver, cache)
  ZEND_PARSE_PARAMETERS_END();
  EnterCpp(Entry::kChanges, [&] {
    const bool is_null = Z_TYPE(receiver.function_name) == IS_UNDEF;
    NativeAs<HandedPage>(Z_OBJ_P(ZEND_THIS)).SendTo(is_null ? nullptr : &receiver.function_name);
  });
}

/// Reads something of the page's response.
void Read(zval* object, void (*read)(const CollectedResponse& answer, zval* result), zval* result) {
  EnterCpp(Entry::kReads, [&] { read(NativeAs<HandedPage>(Z_OBJ_P(object)).Answer(), result); });
}

void PutHeaders(const CollectedResponse& answer, zval* result) {
  CallPhp([&] { array_init(result); });
  for (const auto& [name, value] : answer.Headers()) {
    zval text;
    PutText(value, &text);
    CallPhp([&] { add_assoc_zval_ex(result, name.data(), name.size(), &text); });
  }
}

void GetBody(INTERNAL_FUNCTION_PARAMETERS) {
  ZEND_PARSE_PARAMETERS_NONE();
  Read(
      ZEND_THIS, [](const CollectedResponse& answer, zval* result) { PutText(answer.Body(), result); },
      return_value);
}

void GetStatus(INTERNAL_FUNCTION_PARAMETERS) {
  ZEND_PARSE_PARAMETERS_NONE();
  Read(
      ZEND_THIS, [](const CollectedResponse& answer, zval* result) { ZVAL_LONG(result, answer.Status()); },
      return_value);
}

void GetHeaders(INTERNAL_FUNCTION_PARAMETERS) {
  ZEND_PARSE_PARAMETERS_NONE();
  Read(ZEND_THIS, PutHeaders, return_value);
}

void HasEnded(INTERNAL_FUNCTION_PARAMETERS) {
  ZEND_PARSE_PARAMETERS_NONE();
  Read(
      ZEND_THIS, [](const CollectedResponse& answer, zval* result) { ZVAL_BOOL(result, answer.HasEnded()); },
      return_value);
}

ZEND_BEGIN_ARG_INFO_EX(construct_arginfo, 0, 0, 1)
ZEND_ARG_TYPE_INFO(0, scriptName, IS_STRING, 0)
ZEND_ARG_TYPE_INFO_WITH_DEFAULT_VALUE(0, query, IS_STRING, 0, "\"\"")
ZEND_ARG_TYPE_INFO_WITH_DEFAULT_VALUE(0, body, IS_STRING, 0, "\"\"")
ZEND_ARG_TYPE_INFO_WITH_DEFAULT_VALUE(0, contentType, IS_STRING, 0, "\"application/x-www-form-urlencoded\"")
ZEND_ARG_TYPE_INFO_WITH_DEFAULT_VALUE(0, server, IS_ARRAY, 0, "[]")
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_OBJ_INFO_EX(from_globals_arginfo, 0, 0, Dralo\\Page, 0)
ZEND_ARG_TYPE_INFO_WITH_DEFAULT_VALUE(0, scriptName, IS_STRING, 1, "null")
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(send_to_arginfo, 0, 1, IS_VOID, 0)
ZEND_ARG_TYPE_INFO(0, receiver, IS_CALLABLE, 1)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(body_arginfo, 0, 0, IS_STRING, 0)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(status_arginfo, 0, 0, IS_LONG, 0)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(headers_arginfo, 0, 0, IS_ARRAY, 0)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(ended_arginfo, 0, 0, _IS_BOOL, 0)
ZEND_END_ARG_INFO()

// clang-format off
const zend_function_entry kMethods[] = {
    SCRIPT_FUNCTION("__construct", Construct, construct_arginfo, ZEND_ACC_PUBLIC)
    SCRIPT_FUNCTION("fromGlobals", FromGlobals, from_globals_arginfo, ZEND_ACC_PUBLIC | ZEND_ACC_STATIC)
    SCRIPT_FUNCTION("sendTo", SendTo, send_to_arginfo, ZEND_ACC_PUBLIC)
    SCRIPT_FUNCTION("body", GetBody, body_arginfo, ZEND_ACC_PUBLIC)
    SCRIPT_FUNCTION("status", GetStatus, status_arginfo, ZEND_ACC_PUBLIC)
    SCRIPT_FUNCTION("headers", GetHeaders, headers_arginfo, ZEND_ACC_PUBLIC)
    SCRIPT_FUNCTION("ended", HasEnded, ended_arginfo, ZEND_ACC_PUBLIC)
    ZEND_FE_END};
// clang-format on

}  // namespace

ScriptClass page_class = {
    .name = "Dralo\\Page",
    .methods = kMethods,
    .is_constructed = true,
    .reading = Entry::kReads,
    .add_garbage_roots =
        [](const platform::Object& page, zend_get_gc_buffer* roots) {
          static_cast<const HandedPage&>(page).AddGarbageRoots(roots);
        },
};

}  // namespace dralo::php
