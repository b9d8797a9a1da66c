# Installs the kit, builds a driver in C, one in C++ and a catalog with the kit only, and prints with
# them.
include(${CMAKE_CURRENT_LIST_DIR}/KitSteps.cmake)

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
set(work_folder ${WORK})
run(0 ${CMAKE_COMMAND} --install ${BUILD} --prefix ${kit})
foreach(file bin/jsw.dll bin/jswctl.exe bin/qldemo.exe bin/qldejsw.loc bin/data/catalog.xml
             include/jsw/version.h window/view/EntryPoints.cpp docs/logging.md README.md)
  if(NOT EXISTS ${kit}/${file})
    message(FATAL_ERROR "the kit lacks ${file}")
  endif()
endforeach()

# The symbols are beside the library, which names their file.
if(EXISTS ${BUILD}/bin/jsw.dll.debug)
  file(STRINGS ${kit}/bin/jsw.dll names REGEX "debug_info|^jsw.dll.debug")
  file(STRINGS ${kit}/bin/jsw.dll.debug symbols REGEX "debug_info")
  if(NOT names STREQUAL "jsw.dll.debug" OR NOT symbols)
    message(FATAL_ERROR "jsw.dll keeps its symbols or lost them: ${names} / ${symbols}")
  endif()
endif()

if(EXISTS ${BUILD}/bin/jsw.pdb AND NOT EXISTS ${kit}/bin/jsw.pdb)
  message(FATAL_ERROR "the kit lacks the symbols for the debuggers of Windows")
endif()

# The samples and windows can be built from the kit: checks that all sources, and all files that they
# include, are there.
file(GLOB_RECURSE sources ${kit}/samples/*.cpp ${kit}/samples/*.h ${kit}/window/*.cpp ${kit}/window/*.h)
foreach(source ${sources})
  file(STRINGS ${source} lines REGEX "^#include \"")
  foreach(line ${lines})
    string(REGEX REPLACE "^#include \"([^\"]*)\".*" "\\1" header "${line}")
    if(NOT EXISTS ${kit}/${header} AND NOT EXISTS ${kit}/include/${header})
      message(FATAL_ERROR "${source} includes ${header}, which the kit lacks")
    endif()
  endforeach()
endforeach()
set(toolchain --toolchain ${kit}/cmake/mingw-w64.cmake -G ${GENERATOR} -DCMAKE_C_COMPILER_WORKS=1
              -DCMAKE_CXX_COMPILER_WORKS=1)
if(NOT CROSS)
  list(REMOVE_AT toolchain 0 1)
endif()
run(0 ${CMAKE_COMMAND} -S ${kit} -B ${WORK}/samples ${toolchain})

take_example(${kit}/docs/driver-guide.md 1 ${WORK}/examples/host.c)
take_example(${kit}/docs/driver-guide.md 2 ${WORK}/examples/guard.c)
take_example(${kit}/docs/module-guide.md 1 ${WORK}/examples/catalog.c)
take_example(${kit}/docs/module-guide.md 2 ${WORK}/examples/view.c)
run(0 ${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/consumer -B ${consumer} ${toolchain}
    -DCMAKE_PREFIX_PATH=${kit} -DEXAMPLES=${WORK}/examples)
run(0 ${CMAKE_COMMAND} --build ${consumer})

# A module that lacks entry points it requires does not link, and the linker says which.
foreach(language c cpp)
  run(nonzero ${CMAKE_COMMAND} --build ${consumer} --target unfinished_${language})
  expect(SetSavedValue GetBillboardCarts IsHistoryChecked JSWPostDlgMsg PcsClosePrinter)
endforeach()

file(COPY ${kit}/bin/jsw.dll ${kit}/bin/jswv.dll ${consumer}/printdlg.exe ${consumer}/qlbooklet.exe
          ${consumer}/prinbcat.dll ${CMAKE_CURRENT_LIST_DIR}/consumer/prinjsw.loc
          ${CMAKE_CURRENT_LIST_DIR}/consumer/qlbojsw.loc
     DESTINATION ${product})
# One host names its view in its settings, the other uses the default name.
file(COPY_FILE ${kit}/bin/jswv.dll ${product}/qlbojswv.dll)
file(COPY ${CMAKE_CURRENT_LIST_DIR}/consumer/hello.jbb DESTINATION ${product}/data/Scripts)
set(work_folder ${product})
set(jswctl ${EMULATOR} ${kit}/bin/jswctl.exe)
run(0 ${jswctl} remove printdlg.exe --no-backup)
run(0 ${jswctl} remove qlbooklet.exe --no-backup)

run(0 ${EMULATOR} ./printdlg.exe)
expect("JSWInit answered 1" "Loading view DLL, filename=.\\jswv.dll."
       "Loading catalog DLL, filename=.\\prinbcat.dll." "billboard= 'hello.jbb'")
run(0 ${EMULATOR} ./qlbooklet.exe)
expect("built for ${VERSION}, interface 1" "JSWInit answered 1")
run(0 ${jswctl} --version)
expect(${VERSION})
