# cmake -DOUTPUT=FILE -DFILES=NAME=PATH;... -P embed.cmake: writes C++ that holds the files.

set(arrays "")
set(rows "")
set(number 0)
foreach(file ${FILES})
  string(REGEX MATCH "^([^=]+)=(.+)$" found ${file})
  set(name ${CMAKE_MATCH_1})
  set(path ${CMAKE_MATCH_2})
  file(READ ${path} bytes HEX)
  string(REGEX REPLACE "(..)" "'\\\\x\\1'," bytes "${bytes}")
  if(name MATCHES "css$")
    set(type "text/css; charset=utf-8")
  elseif(name MATCHES "js$")
    set(type "text/javascript; charset=utf-8")
  elseif(name MATCHES "svg$")
    set(type "image/svg+xml")
  else()
    set(type "image/gif")
  endif()
  string(APPEND arrays "constexpr char kData${number}[] = {${bytes}};\n")
  string(APPEND rows "    {\"${name}\", \"${type}\", {kData${number}, sizeof kData${number}}},\n")
  math(EXPR number "${number} + 1")
endforeach()
file(WRITE ${OUTPUT} "#include \"assets.h\"

namespace serve {
namespace {

${arrays}
constexpr Asset kAssets[] = {
${rows}};

}  // namespace

const Asset* FindAsset(std::string_view name) {
  for (const Asset& asset : kAssets) {
    if (asset.name == name) return &asset;
  }
  return nullptr;
}

}  // namespace serve
")
