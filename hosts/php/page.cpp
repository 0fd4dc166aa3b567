#include "hosts/php/page.h"

#include <memory>

#include "hosts/php/script_request.h"
#include "hosts/php/script_response.h"
#include "hosts/php/thread_state.h"

namespace dralo::php {
namespace {

class Page final : public platform::PageContext {
 public:
  const platform::Request& GetRequest() const override { return request_; }
  platform::Response& GetResponse() override { return response_; }

 private:
  ScriptRequest request_;
  ScriptResponse response_;
};

}  // namespace

platform::PageContext& CurrentPage() {
  auto& page = ThisThread().page;
  if (!page) page = std::make_unique<Page>();
  return *page;
}

void ForgetPage() noexcept { ThisThread().page.reset(); }

}  // namespace dralo::php
