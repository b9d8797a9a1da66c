# Compiler options and the kinds of targets of this project.

add_library(jsw_options INTERFACE)
target_compile_features(jsw_options INTERFACE cxx_std_20)
target_include_directories(jsw_options INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
# The oldest supported Windows is 6.0 (Vista, Server 2008), which the compiler's thread runtime needs.
# The headers show nothing newer; newer functions are looked up by name. The code still handles older
# systems, because a host may run in a compatibility mode.
target_compile_definitions(jsw_options INTERFACE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0600)

if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  # A false positive with std::string (GCC bug 105651); clang has the same warning.
  set(mistaken -Wno-restrict -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
  # Without it a compiler cache ignores files with a precompiled header.
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

# jsw_precompile(name header...): below here, precompiles the headers that nearly every file includes,
# and the given ones. All users have the same compiler options. No file relies on it: scripts/check.sh
# compiles each without.
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

# jsw_product(): everything below here is the product. It has debug symbols, also in release builds,
# with paths relative to the root of the sources, and line counters if requested. They name functions and
# lines; to follow variables through optimised code would take up to a quarter of the compile time.
macro(jsw_product)
  add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-g>
                      $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-fno-var-tracking>
                      $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-gcodeview>
                      $<$<COMPILE_LANGUAGE:CXX>:-fdebug-prefix-map=${PROJECT_SOURCE_DIR}=.>)
  if(JSW_COVERAGE)
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:--coverage>)
  endif()
  jsw_precompile(product_headers)
endmacro()

# jsw_quick_build(): everything below here is compiled for a short build time.
macro(jsw_quick_build)
  add_compile_options($<$<CONFIG:Release>:-O1>)
  jsw_precompile(quick_headers)
endmacro()

# jsw_without_symbols(): everything linked below here has no symbols in a release build, because it is
# installed.
macro(jsw_without_symbols)
  add_link_options($<$<CONFIG:Release>:-s>)
endmacro()

# jsw_library(name SOURCES file... LINK target...): one static library, a component of the product.
function(jsw_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC jsw_options ${ARG_LINK})
  jsw_reuse_headers(${name})
endfunction()

# jsw_module(name SOURCES file... LINK target...): a loadable module named exactly name.dll, which
# leaks nothing when it is freed.
function(jsw_module name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  set(JSW_PRECOMPILED quick_headers) # also among the tests: a module knows nothing of GoogleTest
  if(NOT TARGET module_end)
    add_library(module_end OBJECT ${PROJECT_SOURCE_DIR}/common/ModuleEnd.cpp)
    target_link_libraries(module_end PRIVATE jsw_options)
    jsw_reuse_headers(module_end)
  endif()
  add_library(${name} MODULE ${ARG_SOURCES} $<TARGET_OBJECTS:module_end>)
  set_target_properties(${name} PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY
                                                     ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  target_link_libraries(${name} PRIVATE jsw_options ${ARG_LINK})
  jsw_reuse_headers(${name})
endfunction()

# jsw_copy_files(target base folder file...): the target copies files, named from the folder base on,
# into a folder of the one that the programs lie in.
function(jsw_copy_files target base folder)
  foreach(file ${ARGN})
    set(source ${CMAKE_CURRENT_SOURCE_DIR}/${base}/${file})
    set(copy ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${folder}/${file})
    add_custom_command(
      OUTPUT ${copy}
      COMMAND ${CMAKE_COMMAND} -E copy ${source} ${copy}
      DEPENDS ${source})
    list(APPEND copies ${copy})
  endforeach()
  add_custom_target(${target} ALL DEPENDS ${copies})
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
