#include "hosts/php/handed_page.h"

#include "hosts/php/errors.h"
#include "hosts/php/guard.h"
#include "hosts/php/values.h"

namespace dralo::php {

void HandedPage::SendTo(const zval* receiver) {
  if (response_.HasBegun()) {
    throw ScriptError{zend_ce_error,
                      "Cannot change where the pieces of a Dralo\\Page go after its views have written some"};
  }
  receiver_ = receiver == nullptr ? nullptr : std::make_shared<KeptValue>(receiver);
  response_.pass_on = nullptr;
  if (receiver_ != nullptr) response_.pass_on = [this](std::string_view piece) { PassOn(piece); };
}

void HandedPage::AddGarbageRoots(zend_get_gc_buffer* roots) const {
  // While the function runs, PassOn() holds it too.
  if (receiver_.use_count() == 1) zend_get_gc_buffer_add_zval(roots, receiver_->Get());
}

std::shared_ptr<platform::PageContext> HandedPage::Keep() {
  zval object;
  ZVAL_OBJ(&object, script_object_);
  return {std::make_shared<KeptValue>(&object), this};
}

void HandedPage::PassOn(std::string_view piece) {
  const std::shared_ptr<KeptValue> receiver = receiver_;
  zval text;
  PutText(piece, &text);
  CallPhp([&] {
    zval arguments[2];
    zval result;
    ZVAL_UNDEF(&result);
    ZVAL_COPY_VALUE(&arguments[0], &text);
    ZVAL_OBJ_COPY(&arguments[1], script_object_);
    call_user_function(nullptr, nullptr, receiver->Get(), &result, 2, arguments);
    zval_ptr_dtor(&arguments[0]);
    zval_ptr_dtor(&arguments[1]);
    zval_ptr_dtor(&result);
  });
}

}  // namespace dralo::php
