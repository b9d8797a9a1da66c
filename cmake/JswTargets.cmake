# How every target of this project is compiled, and the few kinds of targets there are.

add_library(jsw_options INTERFACE)
target_compile_features(jsw_options INTERFACE cxx_std_20)
target_include_directories(jsw_options INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include
                                                 ${PROJECT_BINARY_DIR}/include)
# The oldest Windows that is served is 6.0 (Vista, Server 2008): the compiler's thread runtime needs
# it. The headers show nothing newer; what is newer is looked up by name. Decisions about systems
# older than that stay in the code, because a host may run in a compatibility mode.
target_compile_definitions(jsw_options INTERFACE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0600)

if(MSVC)
  target_compile_options(jsw_options INTERFACE /W4 /WX /permissive- /utf-8)
  target_compile_definitions(jsw_options INTERFACE _CRT_SECURE_NO_WARNINGS)
  set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
else()
  # -Wrestrict: GCC 12 reports std::string's operator+ by mistake (GCC bug 105651).
  target_compile_options(
    jsw_options
    INTERFACE -Wall
              -Wextra
              -Wpedantic
              -Wconversion
              -Wshadow
              -Wno-restrict
              -Werror
              -fstack-protector-strong
              $<$<CONFIG:Debug>:-fsanitize=undefined
              -fsanitize-undefined-trap-on-error
              -D_GLIBCXX_ASSERTIONS>)
  target_link_options(jsw_options INTERFACE -static -fstack-protector-strong)
  option(JSW_COVERAGE "Count how often each line of the library is run (scripts/coverage.sh)" OFF)
  if(JSW_COVERAGE)
    target_link_options(jsw_options INTERFACE --coverage)
  endif()
endif()

# jsw_debug_symbols(): everything from here down gets debug symbols, in release builds too; their
# paths count from the root of the sources.
macro(jsw_debug_symbols)
  if(MSVC)
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:/Zi>)
  else()
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-g>
                        $<$<COMPILE_LANGUAGE:CXX>:-fdebug-prefix-map=${PROJECT_SOURCE_DIR}=.>)
  endif()
endmacro()

# jsw_count_lines(): what is compiled from here down counts how often each of its lines is run, when
# that is asked for.
macro(jsw_count_lines)
  if(JSW_COVERAGE)
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:--coverage>)
  endif()
endmacro()

# jsw_without_symbols(): what is linked from here down, to be installed, carries no symbols in a
# release build.
macro(jsw_without_symbols)
  if(NOT MSVC)
    add_link_options($<$<CONFIG:Release>:-s>)
  endif()
endmacro()

# jsw_library(name SOURCES file... LINK target...): one static library, a room of the house.
function(jsw_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC jsw_options ${ARG_LINK})
endfunction()

# jsw_module(name SOURCES file... LINK target...): a loadable module named exactly name.dll, which
# leaves nothing behind when it is freed.
function(jsw_module name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} MODULE ${ARG_SOURCES} ${PROJECT_SOURCE_DIR}/samples/common/ModuleEnd.cpp)
  set_target_properties(${name} PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY
                                                     ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  target_link_libraries(${name} PRIVATE jsw_options ${ARG_LINK})
endfunction()

# jsw_split_symbols(target): in a release build the target's debug symbols go into a file beside it,
# <file>.debug, where gdb finds them; MSVC writes its own .pdb.
function(jsw_split_symbols target)
  if(MSVC)
    target_link_options(${target} PRIVATE $<$<CONFIG:Release>:/DEBUG>)
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
