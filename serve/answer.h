#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <dralo/dralo.h>

namespace serve {

using Headers = std::vector<std::pair<std::string, std::string>>;

/// The request of a browser, unchanged.
struct Request {
  std::string method;
  std::string target;  ///< A path, perhaps followed by "?" and a query.
  std::string form;    ///< The body of a post, application/x-www-form-urlencoded.
  Headers headers;

  /// Empty when the header did not come, or came more than once.
  std::string Header(const std::string& lower_name) const;
};

struct Answer {
  int status = 200;
  std::string type = "text/html; charset=utf-8";
  Headers headers = {};
  std::string body = {};
  std::shared_ptr<dralo::PageStream> rest = nullptr;  ///< Is sent after the body; may fail on the way.
};

}  // namespace serve
