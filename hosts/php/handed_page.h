#pragma once

#include <memory>

#include "dralo/object.h"
#include "dralo/page_context.h"
#include "hosts/php/collected_response.h"
#include "hosts/php/engine.h"
#include "hosts/php/kept_value.h"

namespace dralo::php {

/// A page whose request the script hands over and whose response it takes: what Dralo\Page stands for. Only
/// its PHP object owns it; see Keep().
class HandedPage final : public platform::Object, public platform::PageContext {
 public:
  /// `script_object` is the PHP object that owns the page.
  HandedPage(zend_object* script_object, std::unique_ptr<platform::Request> request)
      : script_object_(script_object), request_(std::move(request)) {}

  const platform::Request& GetRequest() const override { return *request_; }
  platform::Response& GetResponse() override { return response_; }
  bool HasEnded() const override { return response_.HasEnded(); }

  const CollectedResponse& Answer() const { return response_; }

  /// From now on the script's function `receiver` is given each piece and the page; nullptr has them
  /// collected.
  void SendTo(const zval* receiver);

  /// Adds that function, for the collector of cycles.
  void AddGarbageRoots(zend_get_gc_buffer* roots) const;

  /// The PHP object that owns the page.
  zend_object* ScriptObject() const { return script_object_; }

  /// The page for its views: keeps the PHP object alive, and so the page.
  std::shared_ptr<platform::PageContext> Keep();

 private:
  void PassOn(std::string_view piece);

  zend_object* script_object_;
  std::unique_ptr<platform::Request> request_;
  CollectedResponse response_;
  std::shared_ptr<KeptValue> receiver_;
};

}  // namespace dralo::php
