# The demonstration driver as a newcomer meets it: what it says when something is in the way, and that
# it ends at once then.
include(${CMAKE_CURRENT_LIST_DIR}/KitSteps.cmake)

set(work_folder ${kit}/bin)
set(qldemo ${EMULATOR} ./qldemo.exe --seconds-per-page 0.2)
run(0 ${EMULATOR} ./jswctl.exe remove qldemo.exe --no-backup)

run(2 ${qldemo} --pages many)
expect("'many' will not do for --pages")
run(1 ${qldemo} --screenshots nowhere)
expect("there is no folder" "nowhere")

# A prompt whose answer has no button, on a document whose length nobody knows.
file(WRITE ${WORK}/unanswered.jobscript "at 0.2 prompt 1\nat 0.3 answer yes\n")
run(1 ${qldemo} --pages ? --script ${WORK}/unanswered.jobscript)
expect("page 3 of ?" "nobody answers the prompt" "JSWDisplayPrompt has returned")

# A job that does not start is told with the place of the reason.
run(0 ${EMULATOR} reg add [[HKLM\Software\QuillonInkjet\JSW\Local\qlde\Settings\Controller]] /v View
    /d gone.dll /f)
run(1 ${qldemo} --pages 1)
expect("JSWInit answered 0" "qldeJSW.log")
run(0 ${EMULATOR} ./jswctl.exe remove qldemo.exe --no-backup)
