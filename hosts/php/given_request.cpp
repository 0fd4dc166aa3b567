#include "hosts/php/given_request.h"

#include "hosts/cpp/multipart_form.h"
#include "hosts/cpp/url_encoded.h"
#include "hosts/php/multipart.h"
#include "hosts/php/request_headers.h"
#include "hosts/php/values.h"
#include "text/ascii.h"

namespace dralo::php {
namespace {

std::vector<platform::RequestField> FieldsOf(std::string_view content_type, std::string_view body) {
  if (IsUrlEncodedForm(content_type)) return host::ParseUrlEncoded(body);
  if (!host::IsMultipart(content_type)) return {};
  return body.empty() ? MultipartFields() : host::ParseMultipart(content_type, body);
}

std::vector<std::pair<std::string, std::string>> TextsOf(HashTable* array) {
  std::vector<std::pair<std::string, std::string>> texts;
  zend_string* key = nullptr;
  zval* value = nullptr;
  ZEND_HASH_FOREACH_STR_KEY_VAL(array, key, value) {
    ZVAL_DEREF(value);
    if (key != nullptr && Z_TYPE_P(value) == IS_STRING) {
      texts.emplace_back(View(key), View(Z_STR_P(value)));
    }
  }
  ZEND_HASH_FOREACH_END();
  return texts;
}

}  // namespace

GivenRequest::GivenRequest(std::string_view script_name, std::string_view query, std::string_view body,
                           std::string_view content_type, HashTable* server)
    : script_name_(script_name),
      content_type_(content_type),
      form_(FieldsOf(content_type, body)),
      query_(host::ParseUrlEncoded(query)),
      server_(TextsOf(server)) {}

std::string GivenRequest::ServerVariable(std::string_view name) const {
  if (name == "SCRIPT_NAME") return script_name_;
  const std::string* value = Find(name);
  return value == nullptr ? std::string() : *value;
}

std::vector<std::string> GivenRequest::HeaderValues(std::string_view name) const {
  if (text::EqualAscii(name, "Content-Type")) {
    return content_type_.empty() ? std::vector<std::string>() : std::vector<std::string>{content_type_};
  }
  const std::string* value = Find(VariableOfHeader(name));
  return value == nullptr ? std::vector<std::string>() : std::vector<std::string>{*value};
}

const std::string* GivenRequest::Find(std::string_view name) const {
  for (const auto& [known, value] : server_) {
    if (known == name) return &value;
  }
  return nullptr;
}

}  // namespace dralo::php
