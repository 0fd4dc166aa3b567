#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "dralo/error.h"
#include "dralo/object.h"
#include "dralo/variant.h"

namespace dralo::platform {

/// How a hardened page makes the token that its forms carry, and knows it again: the function of
/// TokenCallback. Called by the thread that renders; several views may share one when their pages belong to
/// one thread.
class TokenCallback : public Object {
 public:
  /// `call` is given Null for a token, and returns a text; given a text, it returns whether that is the
  /// visitor's token. It must not be empty; see MakeTokenCallback().
  explicit TokenCallback(std::function<Variant(const Variant&)> call) : call_(std::move(call)) {}

  /// The visitor's token. Throws Error when the function returns none, and whatever the function throws.
  std::string Make() const {
    const Variant token = call_(Null());
    const auto* text = std::get_if<std::string>(&token);
    if (text == nullptr || text->empty()) throw Error("TokenCallback returned no token for null");
    return *text;
  }

  /// Whether the function knows the token. Throws Error when it returns neither True nor False, and whatever
  /// the function throws.
  bool Knows(std::string_view token) const {
    const Variant answer = call_(std::string(token));
    const auto* is_known = std::get_if<bool>(&answer);
    if (is_known == nullptr) throw Error("TokenCallback returned neither true nor false for a token");
    return *is_known;
  }

 private:
  std::function<Variant(const Variant&)> call_;
};

/// The callback that calls `call`; nullptr for an empty function.
inline std::shared_ptr<TokenCallback> MakeTokenCallback(std::function<Variant(const Variant&)> call) {
  return call ? std::make_shared<TokenCallback>(std::move(call)) : nullptr;
}

}  // namespace dralo::platform

namespace dralo {

using platform::MakeTokenCallback;
using platform::TokenCallback;

}  // namespace dralo
