#pragma once

#include <vector>

#include "dralo/request.h"

namespace dralo::php {

/// Listens to PHP's reader of multipart/form-data, which leaves nothing of the body behind. Other listeners
/// stay. Called once, when the module starts.
void ListenToMultipart();

/// Called when the module stops.
void StopListeningToMultipart();

/// The fields of the current request's multipart form, without files, in their order.
const std::vector<platform::RequestField>& MultipartFields();

/// Called at the end of the request; its start is too late, because the form is read before.
void ForgetMultipartFields() noexcept;

}  // namespace dralo::php
