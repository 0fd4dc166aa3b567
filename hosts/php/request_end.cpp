#include "hosts/php/request_end.h"

#include "database/objects.h"
#include "hosts/php/multipart.h"
#include "hosts/php/native_object.h"
#include "hosts/php/page.h"

#include "hosts/php/engine.h"

namespace dralo::php {
namespace {

decltype(sapi_module.deactivate) next_at_end = nullptr;

/// At the end of a script it comes after everything else, and finds nothing to do.
int EndRequestAndGoOn() {
  EndRequest();
  return next_at_end == nullptr ? SUCCESS : next_at_end();
}

}  // namespace

void ListenToRequestEnd() {
  next_at_end = sapi_module.deactivate;
  sapi_module.deactivate = EndRequestAndGoOn;
}

void StopListeningToRequestEnd() {
  if (sapi_module.deactivate == EndRequestAndGoOn) sapi_module.deactivate = next_at_end;
}

void EndRequest() noexcept {
  EndPageOfAllObjects();
  ForgetPage();
  ForgetMultipartFields();
  database::CloseStaleConnections();
}

}  // namespace dralo::php
