# How every target of this project is compiled, and the few kinds of targets there are.

add_library(jsw_options INTERFACE)
target_compile_features(jsw_options INTERFACE cxx_std_20)
target_include_directories(jsw_options INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
# The oldest Windows that is served is 6.0 (Vista, Server 2008): the compiler's thread runtime needs
# it. The headers show nothing newer; what is newer is looked up by name. Decisions about systems
# older than that stay in the code, because a host may run in a compatibility mode.
target_compile_definitions(jsw_options INTERFACE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0600)

if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  # Reported of std::string by mistake (GCC bug 105651); clang looks for the same.
  set(mistaken -Wno-restrict -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
  # A compiler cache lets files with a precompiled header by without it.
  set(cached -fpch-preprocess)
endif()
target_compile_options(
  jsw_options
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wconversion
            -Wshadow
            ${mistaken}
            -Werror
            -fstack-protector-strong
            ${cached}
            $<$<CONFIG:Debug>:-fsanitize=undefined
            -fsanitize-undefined-trap-on-error
            -D_GLIBCXX_ASSERTIONS>)
target_link_options(jsw_options INTERFACE -static -fstack-protector-strong)
option(JSW_COVERAGE "Count how often each line of the library is run (scripts/coverage.sh)" OFF)
if(JSW_COVERAGE)
  target_link_options(jsw_options INTERFACE --coverage)
endif()

# jsw_precompile(name header...): from here down what nearly every file includes, and the headers given,
# is read once. All that reuses it is compiled with the same options. No file relies on it:
# scripts/check.sh has each read without.
macro(jsw_precompile name)
  if(NOT TARGET ${name})
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp CONTENT "")
    add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    target_link_libraries(${name} PRIVATE jsw_options)
    target_precompile_headers(
      ${name}
      PRIVATE
      <windows.h>
      <algorithm>
      <array>
      <atomic>
      <cstdint>
      <cstdio>
      <cstdlib>
      <exception>
      <functional>
      <map>
      <memory>
      <mutex>
      <optional>
      <span>
      <stdexcept>
      <string>
      <string_view>
      <utility>
      <vector>
      ${ARGN})
  endif()
  set(JSW_PRECOMPILED ${name})
endmacro()

function(jsw_reuse_headers target)
  if(TARGET ${JSW_PRECOMPILED})
    target_precompile_headers(${target} REUSE_FROM ${JSW_PRECOMPILED})
  endif()
endfunction()

# jsw_product(): what is compiled from here down is the product. It gets debug symbols, in release
# builds too, whose paths count from the root of the sources, and counts how often each of its lines
# is run when that is asked for.
macro(jsw_product)
  add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-g>
                      $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-gcodeview>
                      $<$<COMPILE_LANGUAGE:CXX>:-fdebug-prefix-map=${PROJECT_SOURCE_DIR}=.>)
  if(JSW_COVERAGE)
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:--coverage>)
  endif()
  jsw_precompile(product_headers)
endmacro()

# jsw_quick_build(): what is compiled from here down is optimised no more than makes it soon built.
macro(jsw_quick_build)
  add_compile_options($<$<CONFIG:Release>:-O1>)
  jsw_precompile(quick_headers)
endmacro()

# jsw_without_symbols(): what is linked from here down, to be installed, carries no symbols in a
# release build.
macro(jsw_without_symbols)
  add_link_options($<$<CONFIG:Release>:-s>)
endmacro()

# jsw_library(name SOURCES file... LINK target...): one static library, a room of the house.
function(jsw_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC jsw_options ${ARG_LINK})
  jsw_reuse_headers(${name})
endfunction()

# jsw_module(name SOURCES file... LINK target...): a loadable module named exactly name.dll, which
# leaves nothing behind when it is freed.
function(jsw_module name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} MODULE ${ARG_SOURCES} ${PROJECT_SOURCE_DIR}/samples/common/ModuleEnd.cpp)
  set_target_properties(${name} PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY
                                                     ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  target_link_libraries(${name} PRIVATE jsw_options ${ARG_LINK})
  set(JSW_PRECOMPILED quick_headers) # also among the tests: a module knows nothing of GoogleTest
  jsw_reuse_headers(${name})
endfunction()

# jsw_split_symbols(target): in a release build the target's debug symbols go into a file beside it:
# GCC's into <file>.debug, where gdb finds them, clang's into <name>.pdb for the debuggers of Windows.
function(jsw_split_symbols target)
  if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    target_link_options(${target} PRIVATE $<$<CONFIG:Release>:-Wl,--pdb=$<TARGET_FILE_DIR:${target}>/${target}.pdb>)
    return()
  endif()
  add_custom_command(
    TARGET ${target}
    POST_BUILD
    COMMAND "$<$<CONFIG:Release>:${CMAKE_OBJCOPY};--only-keep-debug;$<TARGET_FILE:${target}>;$<TARGET_FILE:${target}>.debug>"
    COMMAND "$<$<CONFIG:Release>:${CMAKE_STRIP};--strip-unneeded;$<TARGET_FILE:${target}>>"
    COMMAND "$<$<CONFIG:Release>:${CMAKE_OBJCOPY};--add-gnu-debuglink=$<TARGET_FILE:${target}>.debug;$<TARGET_FILE:${target}>>"
    COMMAND_EXPAND_LISTS VERBATIM)
endfunction()
