#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dralo/response.h"

namespace dralo::php {

/// A response that is kept for the script, which sends it itself. Nothing is printed and no header is set.
class CollectedResponse final : public platform::Response {
 public:
  /// Takes pieces as they are written instead of having them collected; headers are complete by then. May
  /// throw.
  std::function<void(std::string_view piece)> pass_on;

  int Status() const { return status_; }
  const std::string& Body() const { return body_; }

  /// Content-Type first. Each name occurs once.
  const std::vector<std::pair<std::string, std::string>>& Headers() const { return headers_; }

  bool HasBegun() const { return is_sent_ || !body_.empty(); }
  bool HasEnded() const { return has_ended_; }

  void Write(std::string_view html) override;
  void Clear() override;
  void SetContentType(std::string_view type) override { AddHeader("Content-Type", type); }

  /// Replaces an earlier header of the name, as header() does.
  void AddHeader(std::string_view name, std::string_view value) override;

  /// Leaves the view that is writing by HostAbort; the script goes on after its call.
  void End() override;

  bool HasUnsentHeaders() const override { return !is_sent_; }
  void SetStatus(int status) override;

 private:
  void RequireUnsent() const;

  int status_ = 200;
  std::string body_;
  std::vector<std::pair<std::string, std::string>> headers_ = {{"Content-Type", "text/html; charset=utf-8"}};
  bool is_sent_ = false;
  bool has_ended_ = false;
};

}  // namespace dralo::php
