#include "hosts/php/multipart.h"

#include <new>

#include "hosts/php/thread_state.h"

namespace dralo::php {
namespace {

decltype(php_rfc1867_callback) next_listener = nullptr;

bool Keep(std::string_view name, std::string_view value) noexcept {
  if (name.empty()) return true;
  try {
    ThisThread().multipart_fields.push_back({std::string(name), std::string(value)});
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

MultipartAnswer Listen(unsigned int event, void* data, void** extra) {
  if (next_listener != nullptr && next_listener(event, data, extra) == FAILURE) return FAILURE;
  if (event != MULTIPART_EVENT_FORMDATA) return SUCCESS;
  const auto* field = static_cast<multipart_event_formdata*>(data);
  // An earlier listener may have replaced the value.
  const std::size_t length = field->newlength != nullptr ? *field->newlength : field->length;
  const std::string_view value(*field->value, length);
  return Keep(field->name, value) ? SUCCESS : FAILURE;
}

}  // namespace

void ListenToMultipart() {
  next_listener = php_rfc1867_callback;
  php_rfc1867_callback = Listen;
}

void StopListeningToMultipart() {
  if (php_rfc1867_callback == Listen) php_rfc1867_callback = next_listener;
}

const std::vector<platform::RequestField>& MultipartFields() { return ThisThread().multipart_fields; }

void ForgetMultipartFields() noexcept { ThisThread().multipart_fields.clear(); }

}  // namespace dralo::php
