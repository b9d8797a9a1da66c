# A newcomer's first steps: a host of no product line, a catalog of its own, and common mistakes, made on
# purpose. `jswctl check` names each before a job does.
include(${CMAKE_CURRENT_LIST_DIR}/KitSteps.cmake)

set(road ${WORK}/newcomer)
set(jswctl ${EMULATOR} ${kit}/bin/jswctl.exe)
set(store "HKLM\\Software\\Quillon Tools\\JSW\\Local\\prin")
file(REMOVE_RECURSE ${road})
file(COPY ${kit}/bin/jsw.dll ${kit}/bin/jswv.dll ${consumer}/printdlg.exe DESTINATION ${road})
file(COPY_FILE ${kit}/bin/reng.dll ${road}/prinreng.dll)
set(work_folder ${road})

# check(exitCode text...): texts that a check of the host must now contain.
function(check expected)
  run(${expected} ${jswctl} check printdlg.exe)
  expect(${ARGN})
endfunction()

run(0 ${jswctl} remove printdlg.exe --no-backup)
check(1 "id prin" "${store}" "there is no settings file" "prinjsw.loc")

# The example's settings file, renamed: its keys belong to another program.
file(COPY_FILE ${kit}/bin/qldejsw.loc ${road}/prinjsw.loc)
check(1 "no section of" "[Software\\Quillon Tools\\JSW\\Local\\prin\\Settings]")

# A log switch set before the first job prevents the installation of the file.
file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/consumer/prinjsw.loc ${road}/prinjsw.loc)
run(0 ${EMULATOR} reg add "${store}\\Logger" /v Thread_Id_In_Header /t REG_DWORD /d 1 /f)
check(1 "did not happen" "jswctl install --update")
run(0 ${jswctl} install --update printdlg.exe)
expect("DllPath: (none) -> string:.")

# A catalog without the id in its name, one with a misspelt entry point, and the correct one.
file(COPY_FILE ${consumer}/prinbcat.dll ${road}/bcat.dll)
check(1 "prinbcat.dll")
file(COPY_FILE ${consumer}/misspelt.dll ${road}/prinbcat.dll)
check(1 "GetBillboardFileName" "GetBillboardFilename")
file(COPY_FILE ${consumer}/prinbcat.dll ${road}/prinbcat.dll)

# A page that is not in the Scripts folder.
file(COPY ${CMAKE_CURRENT_LIST_DIR}/consumer/hello.jbb DESTINATION ${road}/data)
check(1 "there is no file" "hello.jbb")
file(COPY ${CMAKE_CURRENT_LIST_DIR}/consumer/hello.jbb DESTINATION ${road}/data/Scripts)

# Relative paths, and a host that is started in another folder.
set(work_folder ${WORK})
run(1 ${jswctl} check newcomer/printdlg.exe)
expect("Use a full path")
set(work_folder ${road})

check(0 "data folder")
run(0 ${EMULATOR} ./printdlg.exe)
expect("JSWInit answered 1" "billboard= 'hello.jbb'" "InkPercent2=-1")

# The guide's program, under the name with these settings.
file(COPY_FILE ${consumer}/example_host.exe ${road}/prinhost.exe)
run(0 ${EMULATOR} ./prinhost.exe)
# The remaining problem: the rules engine has no rules file.
run(1 ${EMULATOR} cmd /c "${kit}/bin/jswctl.exe log %ALLUSERSPROFILE%\\prinJSW.log")
expect("report.pdf" "Look at the engine's lines")
