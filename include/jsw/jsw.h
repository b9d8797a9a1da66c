/**
 * @file jsw.h
 * The driver's interface to jsw.dll, the job status window of a printer driver.
 *
 * The life of one job:
 *
 *     JSWInit            once, when the job starts
 *     JSWUpdateInfo      for each page
 *     JSWDisplayPrompt   to ask the user something (blocks until answered)
 *     JSWPostDlgMsg      passes a message to the open prompt
 *     JSWTerminate       once, when the job is over
 *
 * Threads: every function may be called from any thread. One re-entrant lock serialises all
 * functions except the three constant ones; a thread that is inside one function may call another,
 * for example JSWTerminate inside JSWDisplayPrompt's dialog.
 *
 * A thread that waits, for that lock or for the library's worker thread, keeps serving the messages
 * that other threads send to its windows.
 *
 * Errors: no function raises a C++ exception or ends the process; failures are written to the log.
 * A module's C++ exceptions, from any compiler, stay inside. Another structured exception, such as
 * an access violation in a module, is logged with its place and then reaches the caller's handler,
 * if there is one; the library remains usable. Any single system call and any single allocation may
 * fail; if memory stays exhausted, the process may be ended.
 *
 * Loading: the library stays loaded until the process exits, because a window's thread may still be
 * running its code after the last job. FreeLibrary after a job is allowed and only lowers the
 * reference count; loading and freeing the library for each job costs nothing.
 *
 * Strings are zero-terminated and in the ANSI code page. The library copies them: the caller may
 * free them as soon as the call has returned. A null string counts as empty.
 *
 * The header is plain C. Link with the import library, or load jsw.dll and look up the undecorated
 * names.
 */
#ifndef JSW_JSW_H
#define JSW_JSW_H

#include <jsw/types.h>
#include <jsw/version.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * The driver's status callback. It gets a JswStatus code on the thread on which the window reports:
 * a thread of the window, a worker thread of the library, or the driver's thread inside a function
 * of this library.
 *
 * It gets every code of its job except JSW_STATUS_GUI_CLOSED until the job's window is closed,
 * including codes after a JSWTerminate inside the callback and codes that the window reports while
 * it closes.
 *
 * It may call every function of this library; none of them waits there for another thread.
 * JSWTerminate ends the job for the driver at once: the other functions then do nothing until the
 * next JSWInit. The window closes at once, too, unless another thread is inside the library or a
 * billboard is being chosen; then a new thread closes it as soon as that is over. Until then
 * JSWInit returns 0 there. While another thread is inside the library, the other functions do
 * nothing there. Each refused call is logged.
 *
 * It must return. Do not throw a C++ exception out of it, leave it by longjmp() or end the thread
 * inside it; do not longjmp() over a function of this library from anywhere else. The library
 * contains an exception all the same; after the others locks may stay held and memory may leak.
 */
typedef void (*JswStatusCallback)(uint32_t status);

/**
 * Starts a job: shows the job window and starts choosing a billboard.
 *
 * @param friendlyName     the printer's friendly name as the spooler shows it
 * @param jobname          the document's name
 * @param jobType          passed to the window unchanged
 * @param currentPage      page being printed
 * @param totalPages       pages of the job; -1 or -2 if unknown
 * @param currentCopy      copy being printed
 * @param totalCopies      copies of the job
 * @param inkInfo          ink state; null counts as "no ink level known"
 * @param portType         passed to the window unchanged
 * @param secondsRemaining estimated seconds until the job is done
 * @param statusCallback   gets the user's actions in the window, or null; replaces the one of an
 *                         earlier call
 * @return 1 on success, 0 on failure. Call JSWTerminate after either.
 */
uint8_t JSWInit(const char* friendlyName, const char* jobname, uint32_t jobType,
                uint32_t currentPage, uint32_t totalPages, uint32_t currentCopy,
                uint32_t totalCopies, const InkInfo* inkInfo, uint32_t portType,
                uint32_t secondsRemaining, JswStatusCallback statusCallback);

/**
 * Ends the job: stops choosing a billboard, closes the window, saves what was shown and, if a check
 * is due, starts the updater. Without a job it only frees what is left of an earlier one.
 */
void JSWTerminate(void);

/**
 * Passes new progress to the window. Without a job it does nothing.
 *
 * @param value1, value2, value3  passed to the window unchanged; the product's window reads them as
 *                                page, copy and seconds remaining
 * @param value4, value5          accepted and ignored
 * @param data                    passed to the window unchanged
 */
void JSWUpdateInfo(uint32_t value1, uint32_t value2, uint32_t value3, uint32_t value4,
                   uint32_t value5, void* data);

/**
 * Asks the user something through the older job window; returns when the prompt is answered. The
 * prompt types, and how the driver gets the answer, are agreed between driver and window.
 */
void JSWDisplayPrompt(uint32_t promptType, uint32_t totalPages);

/** Passes a message to the open prompt; does nothing without one. Always returns 1. */
uint32_t JSWPostDlgMsg(void* message);

/** Does nothing; always returns 1. */
uint32_t JSWFilterDllMsg(void* value1, void* value2, void* value3);

/** The version of this interface: always 1. */
uint32_t JSWGetAPIVersion(void);

/** Always null: the library does not disclose the window's handle. */
void* JSWGetWindowHwnd(void);

#ifdef __cplusplus
}
#endif

#endif /* JSW_JSW_H */
