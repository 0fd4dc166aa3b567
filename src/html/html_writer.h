#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "dralo/response.h"
#include "html/escaped_copy.h"

namespace dralo::html {

/// Text that is written as it is: markup of the page author, names, and values that a plain page does not
/// escape.
struct Verbatim {
  std::string_view text;
};

/// Two texts, written one after the other and as they are: for a request key, its prefix and its name.
struct Joined {
  std::string_view first;
  std::string_view second;
};

/// Text inside an attribute: double quotes are written "&quot;", everything else as it is.
struct Quoted {
  std::string_view text;
};

/// Text inside a query string: letters and digits as they are, a blank as "+", every other byte as "%XX".
struct Encoded {
  std::string_view text;
};

/// A text that shows as it is, in the text of a page and between the quotes of an attribute: "&", "<", ">"
/// and both kinds of quotes are written as character references, NUL and bytes that are no UTF-8 as U+FFFD.
struct Text {
  std::string_view text;
};

/// An integer type whose values are numbers, not truth values or characters.
template <class T>
concept Number = std::is_integral_v<T> && !std::is_same_v<T, bool> && !std::is_same_v<T, char>;

/// What may stand in a slot: a number, or a text whose type says how it is written.
template <class T>
concept Slot = Number<T> || std::is_same_v<T, Verbatim> || std::is_same_v<T, Joined> ||
    std::is_same_v<T, Quoted> || std::is_same_v<T, Encoded> || std::is_same_v<T, Text>;

/// A string literal with one "{}" slot per argument. Only a literal converts to it, so a value can never
/// become markup by accident; a wrong number of slots does not compile.
template <class... Slots>
class Template {
 public:
  consteval Template(const char* literal) {  // NOLINT(google-explicit-constructor): Put("<b>") is the point
    std::string_view rest(literal);
    std::size_t slots = 0;
    for (std::size_t at = rest.find("{}"); at != rest.npos; at = rest.find("{}"), ++slots) {
      if (slots == sizeof...(Slots)) throw "more {} slots than arguments";
      pieces_[slots] = rest.substr(0, at);
      rest.remove_prefix(at + 2);
    }
    if (slots != sizeof...(Slots)) throw "fewer {} slots than arguments";
    pieces_[slots] = rest;
    for (const std::string_view piece : pieces_) text_bytes_ += piece.size();
  }

  /// The literal text before slot `index`; for the number of slots, the text after the last one.
  constexpr std::string_view Piece(std::size_t index) const { return pieces_[index]; }

  /// How long the literal text is, without the slots.
  constexpr std::size_t TextBytes() const { return text_bytes_; }

 private:
  std::array<std::string_view, sizeof...(Slots) + 1> pieces_;
  std::size_t text_bytes_ = 0;
};

/// Appends HTML to one buffer and passes it to a response in pieces, or keeps it as a text. Literals are kept
/// byte for byte.
class HtmlWriter {
 public:
  /// For pages: the visitor soon sees the first piece.
  static constexpr std::size_t kPageBytes = std::size_t{16} * 1024;
  /// For downloads: servers have much less work with few large pieces than with many small ones.
  static constexpr std::size_t kDownloadBytes = std::size_t{64} * 1024;

  /// Collects a text; see Take().
  HtmlWriter() = default;

  /// Writes to `response`, which must outlive the writer. What was not flushed at its end is lost.
  explicit HtmlWriter(platform::Response& response) : response_(&response) {}

  HtmlWriter(const HtmlWriter&) = delete;
  HtmlWriter& operator=(const HtmlWriter&) = delete;

  /// How many bytes a piece has, about, from the next one on; kPageBytes at first.
  void SetPieceBytes(std::size_t bytes) { piece_bytes_ = bytes; }

  /// Writes `markup`, each slot replaced by the next value.
  template <Slot... Slots>
  HtmlWriter& Put(Template<std::type_identity_t<Slots>...> markup, const Slots&... values) {
    if constexpr ((IsCopied<Slots> && ...)) {
      const std::size_t most_bytes = markup.TextBytes() + (std::size_t{0} + ... + MostBytes(values));
      if (most_bytes < capacity_ - used_) [[likely]]
        return PutInOneGo<Slots...>(markup, values...);
    }
    std::size_t piece = 0;
    ((AppendApart(markup.Piece(piece++)), WriteApart(values)), ...);
    AppendApart(markup.Piece(piece));
    return *this;
  }

  /// Same as Put(), but writes nothing unless `wanted`.
  template <Slot... Slots>
  HtmlWriter& PutIf(bool wanted, Template<std::type_identity_t<Slots>...> markup, const Slots&... values) {
    return wanted ? Put<Slots...>(markup, values...) : *this;
  }

  HtmlWriter& Write(Verbatim value) {
    Append(value.text);
    return *this;
  }
  HtmlWriter& Write(Joined value) {
    Append(value.first);
    Append(value.second);
    return *this;
  }
  HtmlWriter& Write(Quoted value);
  HtmlWriter& Write(Encoded value);
  HtmlWriter& Write(Text value);

  HtmlWriter& Write(Number auto number) {
    if (kMostDigits > capacity_ - used_) [[unlikely]]
      MakeRoom(kMostDigits);
    used_ = static_cast<std::size_t>(Copy(buffer_.get() + used_, number) - buffer_.get());
    return *this;
  }

  /// Passes what was collected to the response. Does nothing without one.
  void Flush();

  /// The collected text so far, for writers without a response.
  std::string_view Collected() const { return {buffer_.get(), used_}; }

  /// Drops the collected text, but keeps the memory.
  void Clear() { used_ = 0; }

  std::string Take() {
    std::string text(Collected());
    used_ = 0;
    return text;
  }

 private:
  static constexpr std::size_t kMostDigits = 24;

  /// Whether the room that a slot's value needs is known beforehand.
  template <class T>
  static constexpr bool IsCopied =
      Number<T> || std::is_same_v<T, Verbatim> || std::is_same_v<T, Joined> || std::is_same_v<T, Text>;

  static std::size_t MostBytes(Verbatim value) { return value.text.size(); }
  static std::size_t MostBytes(Joined value) { return value.first.size() + value.second.size(); }
  static constexpr std::size_t MostBytes(Text value) { return RoomForEscaped(value.text.size()); }
  static constexpr std::size_t MostBytes(Number auto /*number*/) { return kMostDigits; }

  /// For what fits into the buffer: its room is checked once, and its end is kept in a register.
  template <class... Slots>
  HtmlWriter& PutInOneGo(const Template<Slots...>& markup, const Slots&... values) {
    std::size_t piece = 0;
    char* to = buffer_.get() + used_;
    ((to = Copy(Copy(to, markup.Piece(piece++)), values)), ...);
    used_ = static_cast<std::size_t>(Copy(to, markup.Piece(piece)) - buffer_.get());
    return *this;
  }

  /// For what may not fit. Functions of their own, so that the many places that call them stay small.
  void AppendApart(std::string_view text);
  void WriteApart(Verbatim value) { AppendApart(value.text); }
  void WriteApart(Joined value) {
    AppendApart(value.first);
    AppendApart(value.second);
  }
  void WriteApart(const auto& value) { Write(value); }

  void Append(std::string_view text) {
    if (text.size() > capacity_ - used_) [[unlikely]]
      return AppendBeyondBuffer(text);
    Copy(buffer_.get() + used_, text);
    used_ += text.size();
  }

  static char* Copy(char* to, Verbatim value) { return Copy(to, value.text); }
  static char* Copy(char* to, Joined value) { return Copy(Copy(to, value.first), value.second); }
  static char* Copy(char* to, Text value) { return CopyEscaped(to, value.text); }
  static char* Copy(char* to, Number auto number) { return std::to_chars(to, to + kMostDigits, number).ptr; }

  /// Most pieces are so short that a call of memcpy() costs more than the copy: up to 64 bytes are copied as
  /// two halves that may overlap.
  static char* Copy(char* to, std::string_view text) {
    const std::size_t bytes = text.size();
    if (bytes >= 16) {
      if (bytes <= 32) {
        CopyHalves<16>(to, text.data(), bytes);
      } else if (bytes <= 64) {
        CopyHalves<16>(to, text.data(), 32);
        CopyHalves<16>(to + bytes - 32, text.data() + bytes - 32, 32);
      } else {
        CopyLong(to, text);
      }
    } else if (bytes >= 8) {
      CopyHalves<8>(to, text.data(), bytes);
    } else if (bytes >= 4) {
      CopyHalves<4>(to, text.data(), bytes);
    } else if (bytes > 0) {
      const char ends[] = {text[bytes / 2], text.back()};
      to[0] = text[0];
      to[bytes / 2] = ends[0];
      to[bytes - 1] = ends[1];
    }
    return to + bytes;
  }

  template <std::size_t kHalf>
  static void CopyHalves(char* to, const char* from, std::size_t bytes) {
    char halves[2][kHalf];
    std::memcpy(halves[0], from, kHalf);
    std::memcpy(halves[1], from + bytes - kHalf, kHalf);
    std::memcpy(to, halves[0], kHalf);
    std::memcpy(to + bytes - kHalf, halves[1], kHalf);
  }

  static void CopyLong(char* to, std::string_view text);

  /// Appends a text that does not fit into the rest of the buffer.
  void AppendBeyondBuffer(std::string_view text);

  /// Sends the buffer, or lets it grow, so that `bytes` fit, which are at most a piece.
  void MakeRoom(std::size_t bytes);
  void Grow(std::size_t capacity);

  platform::Response* response_ = nullptr;
  std::size_t piece_bytes_ = kPageBytes;
  std::unique_ptr<char[]> buffer_;
  std::size_t capacity_ = 0;
  std::size_t used_ = 0;
};

}  // namespace dralo::html
