#pragma once

#include <unistd.h>

#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

/// What the loops by hand write with: one buffer that goes to standard output.
namespace hand {

inline char buffer[1 << 18];
inline std::size_t used = 0;

inline void Flush() {
  if (write(STDOUT_FILENO, buffer, used) < 0) std::exit(3);
  used = 0;
}

inline void Put(std::string_view text) {
  if (used + text.size() > sizeof buffer) Flush();
  std::memcpy(buffer + used, text.data(), text.size());
  used += text.size();
}

inline void PutInteger(std::int64_t number) {
  char digits[24];
  Put({digits, static_cast<std::size_t>(std::to_chars(digits, digits + sizeof digits, number).ptr - digits)});
}

inline int Two(const char* digits) { return (digits[0] - '0') * 10 + (digits[1] - '0'); }

/// "YYYY-MM-DD[ HH:MM:SS]" as M/D/YYYY and, unless it is midnight, the time of a twelve-hour clock.
inline void PutDate(std::string_view iso) {
  PutInteger(Two(iso.data() + 5));
  Put("/");
  PutInteger(Two(iso.data() + 8));
  Put("/");
  Put(iso.substr(0, 4));
  if (iso.size() < 19 || iso.substr(11) == "00:00:00") return;
  const int hour = Two(iso.data() + 11);
  Put(" ");
  PutInteger(hour % 12 == 0 ? 12 : hour % 12);
  Put(iso.substr(13, 6));
  Put(hour < 12 ? " AM" : " PM");
}

}  // namespace hand
