#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <dralo/dralo.h>

namespace serve {

using Headers = std::vector<std::pair<std::string, std::string>>;

/// What a browser asks, as it was sent.
struct Request {
  std::string method;
  std::string target;  ///< A path, and behind a "?" a query.
  std::string form;    ///< The body of a post, application/x-www-form-urlencoded.
  Headers headers;

  /// Empty when it did not come, or more than once.
  std::string Header(const std::string& lower_name) const;
};

struct Answer {
  int status = 200;
  std::string type = "text/html; charset=utf-8";
  Headers headers = {};
  std::string body = {};
  std::shared_ptr<dralo::PageStream> rest = nullptr;  ///< What follows the body.
};

}  // namespace serve
