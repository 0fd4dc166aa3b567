#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "dralo/date_time.h"

namespace dralo::platform {

/// The absence of a value.
struct Null {
  /// Any two are equal, other than in a database.
  friend constexpr bool operator==(Null, Null) = default;
};

/// An exact decimal number as text: an optional "-", digits, and optionally "." and digits; no exponent, no
/// grouping.
struct Decimal {
  std::string text;  ///< Such as "-12.50".

  /// Of the texts: "1.0" and "1.00" differ.
  friend bool operator==(const Decimal&, const Decimal&) = default;
};

/// A Decimal whose digits are kept elsewhere.
struct DecimalView {
  std::string_view text;  ///< As in Decimal.

  /// Of the texts.
  friend constexpr bool operator==(const DecimalView&, const DecimalView&) = default;
};

/// Owned bytes; never text.
using Bytes = std::vector<std::uint8_t>;

/// Bytes that are kept elsewhere; never text.
struct BytesView {
  const std::uint8_t* data = nullptr;  ///< May be nullptr when `size` is 0.
  std::size_t size = 0;                ///< In bytes.
};

/// A value that owns what it holds. Text is UTF-8.
using Variant = std::variant<Null, bool, std::int64_t, double, Decimal, DateTime, std::string, Bytes>;

/// The same kinds without ownership: decimal, text and bytes point into their owner, such as the row a
/// recordset stands on, and are valid until that moves. Cheap to copy.
using VariantView =
    std::variant<Null, bool, std::int64_t, double, DecimalView, DateTime, std::string_view, BytesView>;

/// A copy that outlives what the view points to.
inline Variant Own(const VariantView& value) {
  struct Copier {
    Variant operator()(DecimalView decimal) const { return Decimal{std::string(decimal.text)}; }
    Variant operator()(std::string_view text) const { return std::string(text); }
    Variant operator()(BytesView bytes) const { return Bytes(bytes.data, bytes.data + bytes.size); }
    Variant operator()(Null null) const { return null; }
    Variant operator()(bool flag) const { return flag; }
    Variant operator()(std::int64_t number) const { return number; }
    Variant operator()(double number) const { return number; }
    Variant operator()(const DateTime& time) const { return time; }
  };
  return std::visit(Copier{}, value);
}

/// A view that is valid as long as `value` is unchanged.
inline VariantView View(const Variant& value) {
  struct Viewer {
    VariantView operator()(const Decimal& decimal) const { return DecimalView{decimal.text}; }
    VariantView operator()(const std::string& text) const { return std::string_view(text); }
    VariantView operator()(const Bytes& bytes) const { return BytesView{bytes.data(), bytes.size()}; }
    VariantView operator()(Null null) const { return null; }
    VariantView operator()(bool flag) const { return flag; }
    VariantView operator()(std::int64_t number) const { return number; }
    VariantView operator()(double number) const { return number; }
    VariantView operator()(const DateTime& time) const { return time; }
  };
  return std::visit(Viewer{}, value);
}

/// Whether there is no value. An empty text is one.
inline bool IsNull(const VariantView& value) { return std::holds_alternative<Null>(value); }

}  // namespace dralo::platform

namespace dralo {

using platform::Bytes;
using platform::BytesView;
using platform::Decimal;
using platform::DecimalView;
using platform::IsNull;
using platform::Null;
using platform::Own;
using platform::Variant;
using platform::VariantView;
using platform::View;

}  // namespace dralo
