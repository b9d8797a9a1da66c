# The demonstration driver for a newcomer: its messages when something is missing, and that it then ends
# at once.
include(${CMAKE_CURRENT_LIST_DIR}/KitSteps.cmake)

set(work_folder ${kit}/bin)
set(qldemo ${EMULATOR} ./qldemo.exe --seconds-per-page 0.2)
run(0 ${EMULATOR} ./jswctl.exe remove qldemo.exe --no-backup)

run(2 ${qldemo} --pages many)
expect("'many' is not valid for --pages")
run(1 ${qldemo} --screenshots nowhere)
expect("there is no folder" "nowhere")

# A prompt whose answer has no button, in a document of unknown length.
file(WRITE ${WORK}/unanswered.jobscript "at 0.2 prompt 1\nat 0.3 answer yes\n")
run(1 ${qldemo} --pages ? --script ${WORK}/unanswered.jobscript)
expect("page 3 of ?" "nobody answers the prompt" "JSWDisplayPrompt has returned")

# A job that does not start is reported with the log's path.
run(0 ${EMULATOR} reg add [[HKLM\Software\QuillonInkjet\JSW\Local\qlde\Settings\Controller]] /v View
    /d gone.dll /f)
run(1 ${qldemo} --pages 1)
expect("JSWInit answered 0" "qldeJSW.log")
run(0 ${EMULATOR} ./jswctl.exe remove qldemo.exe --no-backup)
