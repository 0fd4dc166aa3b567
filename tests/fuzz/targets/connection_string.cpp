#include "database/connection_string.h"

#include <initializer_list>
#include <string>
#include <string_view>

#include "dralo/error.h"
#include "fuzz/fuzz_input.h"
#include "text/ascii.h"

namespace dralo::fuzz {
namespace {

constexpr std::string_view kSecret = "Tr0ub4dor";

bool Tells(std::string_view text) { return text.find(kSecret) != text.npos; }

/// With a password behind it, in each way that one can be written.
void TryBefore(std::string_view text, std::string_view password) {
  const std::string whole = std::string(text) + ";" + std::string(password);
  try {
    const database::ConnectionString read(whole);
    const std::string_view last_key = read.Pairs().back().key;
    const bool is_whole = text::EqualAscii(last_key, "Password") || text::EqualAscii(last_key, "Pwd");
    // Else a quote that is open before has swallowed it.
    Require(!is_whole || !Tells(read.WithoutPassword()), "a text without its password does not hold it");
    for (const auto& pair : read.Pairs()) Require(read.Find(pair.key).has_value(), "every key is found");
    static_cast<void>(read.Seconds("Query Timeout", 1));
    static_cast<void>(read.WithUsualKeys("Tables", "Host, User ID, Password"));
  } catch (const platform::Error& error) {
    Require(!Tells(error.what()), "no message about a connection string holds its password");
  }
}

}  // namespace

void Try(std::string_view input) {
  if (Tells(input)) return;
  for (const std::string_view password :
       {"Password=Tr0ub4dor", " pwd = 'Tr0ub4dor;''&3'", "PWD={Tr0ub4dor}}}", "password=\"\"\"Tr0ub4dor\""}) {
    TryBefore(input, password);
  }
}

}  // namespace dralo::fuzz
