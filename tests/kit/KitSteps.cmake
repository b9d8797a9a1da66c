# Steps of the installed kit's tests. Each ends the test with the program's output if the outcome is not
# the expected one.
#
#   BUILD  build folder    WORK  folder of the tests    EMULATOR  runs Windows programs

set(kit ${WORK}/kit)
set(consumer ${WORK}/consumer)
set(product ${WORK}/product) # the folder in which the newcomer's program is tried

# run(exitCode word...): stores the command's output in `said`.
function(run expected)
  execute_process(
    COMMAND ${ARGN}
    WORKING_DIRECTORY ${work_folder}
    RESULT_VARIABLE code
    OUTPUT_VARIABLE said
    ERROR_VARIABLE said)
  string(REPLACE "\r" "" said "${said}")
  set(said
      "${said}"
      PARENT_SCOPE)
  if((expected STREQUAL "nonzero" AND code EQUAL 0) OR (NOT expected STREQUAL "nonzero" AND NOT code EQUAL expected))
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\nended with ${code}, expected ${expected}:\n${said}")
  endif()
endfunction()

# Copies the n-th C example of a document into a file.
function(take_example document number file)
  file(READ ${document} text)
  foreach(ignored RANGE 1 ${number})
    string(FIND "${text}" "```c\n" start)
    math(EXPR start "${start} + 5")
    string(SUBSTRING "${text}" ${start} -1 text)
  endforeach()
  string(FIND "${text}" "```" end)
  string(SUBSTRING "${text}" 0 ${end} code)
  file(WRITE ${file} "${code}")
endfunction()

# expect(text...): each is in the last command's output.
function(expect)
  foreach(text ${ARGN})
    string(FIND "${said}" "${text}" place)
    if(place EQUAL -1)
      message(FATAL_ERROR "expected: ${text}\nsaid:\n${said}")
    endif()
  endforeach()
endfunction()
