#include "html/html_writer.h"

#include <algorithm>
#include <utility>

#include "html/text_escape.h"
#include "text/ascii.h"

namespace dralo::html {
namespace {

constexpr std::size_t kFirstTextBytes = 512;

}  // namespace

HtmlWriter& HtmlWriter::Write(Quoted value) {
  std::string_view rest = value.text;
  for (std::size_t at = rest.find('"'); at != rest.npos; at = rest.find('"')) {
    Append(rest.substr(0, at));
    Append("&quot;");
    rest.remove_prefix(at + 1);
  }
  Append(rest);
  return *this;
}

HtmlWriter& HtmlWriter::Write(Encoded value) {
  constexpr char kHexDigits[] = "0123456789ABCDEF";
  for (const char c : value.text) {
    if (text::IsLetterOrDigit(c)) {
      Append({&c, 1});
    } else if (c == ' ') {
      Append("+");
    } else {
      const auto byte = static_cast<unsigned char>(c);
      const char escape[] = {'%', kHexDigits[byte >> 4], kHexDigits[byte & 15]};
      Append({escape, sizeof escape});
    }
  }
  return *this;
}

HtmlWriter& HtmlWriter::Write(Text value) {
  if (RoomForEscaped(value.text.size()) <= capacity_ - used_) {
    used_ = static_cast<std::size_t>(Copy(buffer_.get() + used_, value) - buffer_.get());
    return *this;
  }
  std::string_view rest = value.text;
  for (;;) {
    const std::size_t plain = PlainBytes(rest);
    Append(rest.substr(0, plain));
    rest.remove_prefix(plain);
    if (rest.empty()) return *this;
    const Escape escape = FirstEscape(rest);
    Append(escape.by);
    rest.remove_prefix(escape.bytes);
  }
}

void HtmlWriter::Flush() {
  if (response_ == nullptr || used_ == 0) return;
  // Emptied first: when the response fails half-way, the same bytes must not be written again.
  const std::string_view piece(buffer_.get(), used_);
  used_ = 0;
  response_->Write(piece);
}

void HtmlWriter::CopyLong(char* to, std::string_view text) { std::memcpy(to, text.data(), text.size()); }

void HtmlWriter::AppendApart(std::string_view text) { Append(text); }

void HtmlWriter::AppendBeyondBuffer(std::string_view text) {
  if (response_ != nullptr && text.size() > piece_bytes_) {
    // Kept out of the buffer, which would stay as large as the longest text of the page.
    Flush();
    return response_->Write(text);
  }
  MakeRoom(text.size());
  Append(text);
}

void HtmlWriter::MakeRoom(std::size_t bytes) {
  if (response_ == nullptr) return Grow(std::max({used_ + bytes, kFirstTextBytes, capacity_ * 2}));
  Flush();
  if (capacity_ < piece_bytes_) Grow(piece_bytes_);
}

void HtmlWriter::Grow(std::size_t capacity) {
  auto buffer = std::make_unique_for_overwrite<char[]>(capacity);
  Collected().copy(buffer.get(), used_);
  buffer_ = std::move(buffer);
  capacity_ = capacity;
}

}  // namespace dralo::html
