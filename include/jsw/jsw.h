/**
 * @file jsw.h
 * The driver's interface to jsw.dll, the job status window of a printer driver.
 *
 * The life of one job:
 *
 *     JSWInit            once, when the job starts
 *     JSWUpdateInfo      whenever a page goes out
 *     JSWDisplayPrompt   when the user must be asked something (blocks until answered)
 *     JSWPostDlgMsg      hands a dialog message to the prompt that is up
 *     JSWTerminate       once, when the job is over
 *
 * Threads: every function may be called from any thread. One re-entrant lock serialises all of
 * them but the three constant ones; a call made on the same thread from inside another one (for
 * example JSWTerminate from inside JSWDisplayPrompt's dialog) goes through.
 *
 * A thread that has to wait, for that lock or for the library's own worker thread, goes on serving
 * the messages that other threads send to its windows.
 *
 * Errors: no function raises an exception or ends the process; what fails is written to the log. A
 * C++ exception of a module, of whatever compiler, stays inside. Another structured exception, such
 * as an access violation in a module, is written to the log with its place and comes out to the
 * caller's handler, if there is one; the library works on afterwards. Any single call of the system
 * and any single allocation may fail; a host whose memory stays exhausted may be ended.
 *
 * Loading: the library stays loaded until the process ends, because a window may still be on its
 * way out of it after the last job. FreeLibrary after a job is allowed, and only lowers the count;
 * loading and freeing it for each job costs nothing.
 *
 * Strings are zero-terminated and in the ANSI code page. The library keeps copies: everything
 * passed in may be freed as soon as the call has returned. A null string counts as empty.
 *
 * The header is plain C; link with the import library, or load jsw.dll and look the names up
 * (they are undecorated).
 */
#ifndef JSW_JSW_H
#define JSW_JSW_H

#include <jsw/types.h>
#include <jsw/version.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * The driver's status callback, called with a JswStatus code on whatever thread the window reports
 * on: one of its own, a worker thread of the library, or the driver's own inside a function of this
 * library.
 *
 * Every code but JSW_STATUS_GUI_CLOSED is reported to the callback that the job was started with,
 * until the job's window is down: also after JSWTerminate was called inside the callback, and what
 * the window reports while it closes.
 *
 * It may call every function of this library, and none of them waits there for another thread.
 * JSWTerminate ends the job for the driver at once: from then on the other functions do nothing
 * until the next JSWInit. The window closes at once, too, or, while another thread is inside the
 * library or a billboard is being chosen, on a thread of its own as soon as that is over. JSWInit
 * answers 0 at such a time, the other functions do nothing while another thread is inside; each
 * says so in the log.
 *
 * It must return: throwing a C++ exception out of it, leaving it by longjmp(), or ending the thread
 * inside it is not allowed, nor is longjmp() over a function of this library from anywhere else. An
 * exception is contained all the same; after the others locks may stay held and memory be lost.
 */
typedef void (*JswStatusCallback)(uint32_t status);

/**
 * Starts a job: brings the job window up and starts choosing a billboard.
 *
 * @param friendlyName     the printer's friendly name as the spooler shows it
 * @param jobname          the document's name
 * @param jobType          passed on unchanged to the window
 * @param currentPage      page being printed
 * @param totalPages       pages of the job; -1 or -2 when not known
 * @param currentCopy      copy being printed
 * @param totalCopies      copies of the job
 * @param inkInfo          ink state; null counts as "no ink level known"
 * @param portType         passed on unchanged to the window
 * @param secondsRemaining estimated seconds until the job is done
 * @param statusCallback   told what the user does with the window, or null; replaces the one of
 *                         an earlier call
 * @return 1 on success, 0 on failure. After either, JSWTerminate ends the job.
 */
uint8_t JSWInit(const char* friendlyName, const char* jobname, uint32_t jobType,
                uint32_t currentPage, uint32_t totalPages, uint32_t currentCopy,
                uint32_t totalCopies, const InkInfo* inkInfo, uint32_t portType,
                uint32_t secondsRemaining, JswStatusCallback statusCallback);

/**
 * Ends the job: stops the choice of billboards, closes the window, saves what was shown and, when
 * one is due, starts the updater. Without a job it only releases what is left of an earlier one.
 */
void JSWTerminate(void);

/**
 * Passes new progress to the window. Without a job it does nothing.
 *
 * @param value1, value2, value3  go to the window unchanged; the sample window reads them as page,
 *                                copy and seconds remaining
 * @param value4, value5          accepted and ignored
 * @param data                    goes to the window unchanged
 */
void JSWUpdateInfo(uint32_t value1, uint32_t value2, uint32_t value3, uint32_t value4,
                   uint32_t value5, void* data);

/**
 * Asks the user something through the older job window; returns when the prompt is answered. The
 * types of prompts, and the way of the answer to the driver, are agreed between driver and window.
 */
void JSWDisplayPrompt(uint32_t promptType, uint32_t totalPages);

/** Hands a message to the prompt that is up; without one it does nothing. Always returns 1. */
uint32_t JSWPostDlgMsg(void* message);

/** Does nothing; always returns 1. */
uint32_t JSWFilterDllMsg(void* value1, void* value2, void* value3);

/** Version of this interface: always 1. */
uint32_t JSWGetAPIVersion(void);

/** The window's handle is not given out: always null. */
void* JSWGetWindowHwnd(void);

#ifdef __cplusplus
}
#endif

#endif /* JSW_JSW_H */
