# How the targets of this project are made: one static library per folder.

add_library(dralo_options INTERFACE)
target_compile_options(dralo_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor)
# GCC 12 reports overlaps that cannot happen in inlined std::string operations (GCC bug 105651).
target_compile_options(dralo_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(DRALO_WERROR)
  target_compile_options(dralo_options INTERFACE -Werror)
endif()
if(DRALO_SANITIZE)
  target_compile_options(dralo_options INTERFACE -fsanitize=${DRALO_SANITIZE} -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
  target_link_options(dralo_options INTERFACE -fsanitize=${DRALO_SANITIZE})
endif()
if(DRALO_FUZZ)
  target_compile_options(dralo_options INTERFACE -O1 -gline-tables-only -fsanitize=fuzzer-no-link,address,undefined
                                                 -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(dralo_options INTERFACE -fsanitize=address,undefined)
endif()

# dralo_folder(NAME LIBRARY...): the sources of this folder as the library dralo_NAME, which uses the given libraries. A folder without sources is a library of headers.
function(dralo_folder name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(sources)
    add_library(dralo_${name} STATIC ${sources})
    set(scope PUBLIC)
  else()
    add_library(dralo_${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(dralo_${name} ${scope} ${PROJECT_SOURCE_DIR}/include
                             ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
  target_compile_features(dralo_${name} ${scope} cxx_std_20)
  target_link_libraries(dralo_${name} ${scope} ${ARGN})
  list(FILTER ARGN EXCLUDE REGEX "^dralo_")
  set_property(GLOBAL APPEND PROPERTY DRALO_FOREIGN_LIBRARIES ${ARGN})
  if(sources)
    target_link_libraries(dralo_${name} PRIVATE dralo_options)
    set_property(GLOBAL APPEND PROPERTY DRALO_FOLDERS dralo_${name})
    # clang-tidy checks the sources as they are compiled together.
    set_target_properties(dralo_${name} PROPERTIES
                          UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
    # Compiled together the optimiser's choices make pages some 5 % slower.
    if(CMAKE_BUILD_TYPE STREQUAL "Release")
      set_target_properties(dralo_${name} PROPERTIES UNITY_BUILD OFF)
    endif()
  endif()
endfunction()

# dralo_test(NAME LIBRARY... [PROPERTIES PROPERTY VALUE...]): the tests of this folder and those below it as the program
# NAME and the CTest test cases.NAME with the given properties, which runs all cases in one process.
function(dralo_test name)
  cmake_parse_arguments(PARSE_ARGV 1 given "" "" "PROPERTIES")
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${given_UNPARSED_ARGUMENTS} dralo_options GTest::gtest_main GTest::gmock)
  add_test(NAME cases.${name} COMMAND ${PROJECT_SOURCE_DIR}/tests/support/run_cases.py ${name} $<TARGET_FILE:${name}>
                                      ${PROJECT_BINARY_DIR}/cases/cases.${name}.xml)
  set_tests_properties(cases.${name} PROPERTIES LABELS cases TIMEOUT 1200 ${given_PROPERTIES})
endfunction()
