#pragma once

#include "dralo/response.h"

namespace dralo::php {

/// The script's output: what is written passes through its output buffers, as echo does.
class ScriptResponse final : public platform::Response {
 public:
  void Write(std::string_view html) override;
  void Clear() override;
  void SetContentType(std::string_view type) override;
  void AddHeader(std::string_view name, std::string_view value) override;
  void End() override;
  bool HasUnsentHeaders() const override;
  void SetStatus(int status) override;
};

}  // namespace dralo::php
