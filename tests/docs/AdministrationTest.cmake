# Runs the `reg` and `jswctl` lines of a document one after another, as an administrator would from
# a batch file, and checks their results.
#
#   DOCUMENT  the page    WORK  folder of the test    BIN  folder of jswctl and qldemo    EMULATOR
set(settings [[HKLM\Software\QuillonInkjet\JSW\Local\qlde\Settings]])

file(STRINGS ${DOCUMENT} lines REGEX "^    (reg|jswctl) ")
list(LENGTH lines count)
if(count LESS 10)
  message(FATAL_ERROR "${DOCUMENT} has hardly any lines to run: ${lines}")
endif()
set(batch "@echo off\njswctl remove qldemo.exe\n")
foreach(line ${lines})
  string(STRIP "${line}" line)
  string(APPEND batch "echo ${line}\n${line}\n")
  # What a check finds on this machine does not matter here, only that the command works.
  set(worst 1)
  if(line MATCHES "^jswctl check")
    set(worst 2)
  endif()
  string(APPEND batch "if errorlevel ${worst} exit /b 1\n")
endforeach()
string(APPEND batch "reg query ${settings}\\Updater /v DateLastCheckedForUpdates\nif errorlevel 1 exit /b 1\n")
string(REPLACE "\n" "\r\n" batch "${batch}")
file(WRITE ${WORK}/administration.bat "${batch}")

execute_process(
  COMMAND ${EMULATOR} cmd /c ${WORK}/administration.bat
  WORKING_DIRECTORY ${BIN}
  RESULT_VARIABLE code
  OUTPUT_VARIABLE said
  ERROR_VARIABLE said)
if(NOT code EQUAL 0)
  message(FATAL_ERROR "a line failed with ${code}, the last of these:\n${said}")
endif()
if(NOT said MATCHES "Installed .*qldejsw.loc" OR NOT said MATCHES "DateLastCheckedForUpdates +REG_SZ +1/1/2020")
  message(FATAL_ERROR "the lines ran, but the settings are not as they say:\n${said}")
endif()
