#include "hosts/php/script_request.h"

#include <utility>

#include "hosts/cpp/url_encoded.h"
#include "hosts/php/guard.h"
#include "hosts/php/multipart.h"
#include "hosts/php/request_headers.h"
#include "hosts/php/values.h"
#include "text/ascii.h"

namespace dralo::php {
namespace {

std::string_view ContentType() {
  const char* type = SG(request_info).content_type;
  return type == nullptr ? std::string_view() : type;
}

/// The body as it came; PHP keeps it although it has parsed it for $_POST.
std::string Body() {
  zend_string* body = nullptr;
  CallPhp([&] {
    php_stream* stream = php_stream_open_wrapper("php://input", "rb", 0, nullptr);
    if (stream == nullptr) return;
    body = php_stream_copy_to_mem(stream, PHP_STREAM_COPY_ALL, false);
    php_stream_close(stream);
  });
  if (body == nullptr) return {};
  std::string copy(View(body));
  CallPhp([&] { zend_string_release(body); });
  return copy;
}

const zval* FindServerVariable(std::string_view name) {
  const zval* found = nullptr;
  CallPhp([&] {
    zend_is_auto_global(ZSTR_KNOWN(ZEND_STR_AUTOGLOBAL_SERVER));
    zval* server = zend_hash_find(&EG(symbol_table), ZSTR_KNOWN(ZEND_STR_AUTOGLOBAL_SERVER));
    if (server == nullptr) return;
    ZVAL_DEREF(server);
    if (Z_TYPE_P(server) != IS_ARRAY) return;
    zval* value = zend_hash_str_find(Z_ARRVAL_P(server), name.data(), name.size());
    if (value == nullptr) return;
    ZVAL_DEREF(value);
    if (Z_TYPE_P(value) == IS_STRING) found = value;
  });
  return found;
}

}  // namespace

ScriptRequest::ScriptRequest(std::optional<std::string> script_name)
    : script_name_(std::move(script_name)),
      form_(IsUrlEncodedForm(ContentType()) ? host::ParseUrlEncoded(Body()) : MultipartFields()) {
  if (const char* query = SG(request_info).query_string) query_ = host::ParseUrlEncoded(query);
}

std::string ScriptRequest::ServerVariable(std::string_view name) const {
  if (script_name_ && name == "SCRIPT_NAME") return *script_name_;
  const zval* found = FindServerVariable(name);
  return found == nullptr ? std::string() : std::string(View(Z_STR_P(found)));
}

std::string ScriptRequest::Method() const {
  const char* method = SG(request_info).request_method;
  return method == nullptr ? std::string() : std::string(method);
}

std::vector<std::string> ScriptRequest::HeaderValues(std::string_view name) const {
  if (text::EqualAscii(name, "Content-Type")) {
    const std::string_view type = ContentType();
    return type.empty() ? std::vector<std::string>() : std::vector<std::string>{std::string(type)};
  }
  const zval* found = FindServerVariable(VariableOfHeader(name));
  if (found == nullptr) return {};
  return {std::string(View(Z_STR_P(found)))};
}

}  // namespace dralo::php
