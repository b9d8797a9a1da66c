# Cross-builds like mingw-w64.cmake, with clang and lld and the headers and libraries of its GCC.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)

execute_process(
  COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name
  OUTPUT_VARIABLE gcc_folder
  OUTPUT_STRIP_TRAILING_WHITESPACE)
get_filename_component(gcc_folder ${gcc_folder} DIRECTORY)

set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-windows-gnu)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-windows-gnu)

# By default clang uses the headers and libraries of the GCC without POSIX threads.
set(CMAKE_CXX_FLAGS_INIT -nostdinc++)
foreach(folder c++ c++/x86_64-w64-mingw32 c++/backward)
  string(APPEND CMAKE_CXX_FLAGS_INIT " -isystem ${gcc_folder}/include/${folder}")
endforeach()
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT
      "--start-no-unused-arguments -fuse-ld=lld -L${gcc_folder} -L/usr/x86_64-w64-mingw32/lib --end-no-unused-arguments")
endforeach()
# As one group: libstdc++ needs what comes before it.
set(CMAKE_CXX_STANDARD_LIBRARIES
    "-Wl,--start-group -lpthread -lstdc++ -lgcc -lgcc_eh -lmingwex -lmingw32 -lkernel32 -lmoldname -lmsvcrt -luser32 -lgdi32 -lwinspool -lshell32 -lole32 -loleaut32 -luuid -lcomdlg32 -ladvapi32 -Wl,--end-group"
)
