#include "regional/libraries.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>
#include <unicode/uversion.h>

#include <array>

namespace dralo::regional {

std::string IcuVersion() {
  UVersionInfo version;
  u_getVersion(version);
  std::array<char, U_MAX_VERSION_STRING_LENGTH> text{};
  u_versionToString(version, text.data());
  return text.data();
}

std::string Pcre2Version() {
  std::array<char, 64> text{};
  pcre2_config(PCRE2_CONFIG_VERSION, text.data());
  return text.data();
}

}  // namespace dralo::regional
