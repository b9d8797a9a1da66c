# The kit with Visual Studio's conventions: headers, import library and a job of a host in C.
include(${CMAKE_CURRENT_LIST_DIR}/KitSteps.cmake)

set(visual_studio ${WORK}/visual-studio)
file(REMOVE_RECURSE ${visual_studio})
set(work_folder ${WORK})
run(0 ${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/visual-studio -B ${visual_studio} -G ${GENERATOR}
    --toolchain ${CMAKE_CURRENT_LIST_DIR}/visual-studio/clang-msvc.cmake -DCMAKE_PREFIX_PATH=${kit})
run(0 ${CMAKE_COMMAND} --build ${visual_studio})

file(COPY ${kit}/bin/jsw.dll ${kit}/bin/jswv.dll ${CMAKE_CURRENT_LIST_DIR}/consumer/prinjsw.loc
     DESTINATION ${visual_studio})
set(work_folder ${visual_studio})
set(jswctl ${EMULATOR} ${kit}/bin/jswctl.exe)
run(0 ${jswctl} remove printdlg.exe)
run(21 ${EMULATOR} ./printdlg.exe)
run(0 ${jswctl} remove printdlg.exe)
