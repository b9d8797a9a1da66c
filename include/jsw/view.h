/**
 * @file view.h
 * Interface of the view module ("<id>jswv.dll"), which draws the job window and its billboard. The
 * module is in the folder "DllPath" of the host's settings; the value "View" may name another file.
 *
 * Order of calls for one job:
 *
 *     Initialize
 *     SetDataPath SetJobName SetPrinterFriendlyName SetJobType SetCurrentPage SetTotalPages
 *     SetShowPageInfo SetCurrentCopy SetTotalCopies SetInkInfo SetPortType
 *     SetJswCallback SetBillboardCallback
 *     DisplayBillboard                      the default billboard
 *     SetShowProcessWindow SetJswProgressMinimized SetShowSpecialMessages
 *     SetReserveModeCart1 SetReserveModeCart2 SetCompleteAPrintMode SetUpdateSoftware
 *     SetSaveAppearanceCallback SetSaveValueCallback SetUpdateSoftwareCallback
 *     SetSavedValue                         once for each value saved in earlier jobs
 *     ShowGui                               unless the user has switched the window off
 *     UpdateInfo, DisplayBillboard          any number of times
 *     HideGui
 *     Uninitialize
 *
 * Threads: the driver's threads call the module. A driver may call the library inside its status
 * callback, so every entry point may also be called on the module's own thread inside an event
 * callback; HideGui and Uninitialize must not wait there for the thread they run on.
 * DisplayBillboard is also called on a worker thread and inside a billboard callback; HideGui and
 * Uninitialize may be called on the worker thread. The module may call back from any thread,
 * including from inside an entry point. After Uninitialize has returned it must not call back; late
 * callbacks have no effect. A click that is being handled at that moment may still lead to a
 * DisplayBillboard, which must then do nothing.
 *
 * Memory: strings and records passed to the module belong to jsw.dll and are valid only during the
 * call. Strings passed to a callback belong to the module and need to be valid only during it.
 *
 * The module stays loaded until the process exits; one process may run several jobs, one after the
 * other.
 */
#ifndef JSW_VIEW_H
#define JSW_VIEW_H

#include <jsw/module.h>

/** Reports a window event: a JswStatus code or a value of the module's own. */
typedef void (*JswViewEventCallback)(int32_t event);

/**
 * Reports a click in the billboard. Actions, in any letter case: LAUNCH_URL, LAUNCH_APP (actionId
 * counts the billboard's actions from 0), NEXT, PREVIOUS, CURRENT, INK_STATUS; others do nothing.
 */
typedef void (*JswViewBillboardCallback)(const char* action, int32_t actionId);

/**
 * Saves an appearance setting for later jobs. Keys, in any letter case: "Job Progress Minimized",
 * "Show Process Window", "Show Special Messages"; others are refused.
 */
typedef void (*JswViewSaveAppearanceCallback)(const char* key, int32_t value);

/** Saves a value of the module's own; the next job passes it to SetSavedValue. */
typedef void (*JswViewSaveValueCallback)(const char* key, const char* value);

/** Saves the user's choice whether to check for updates: 1 yes, 0 no. */
typedef void (*JswViewUpdateSoftwareCallback)(int32_t updateSoftware);

/* Function types of the entry points. */
typedef void JswViewPlain(void);
typedef void JswViewText(const char* text);
typedef void JswViewNumber(int32_t value);
typedef void JswViewShowPageInfo(JswBool showPageInfo);
typedef void JswViewInkInfo(const InkInfo* inkInfo);
typedef void JswViewDisplayBillboard(const char* billboard, JswBool enableBillboardNavigation,
                                     JswBool restoreWindow);
typedef void JswViewUpdateInfo(uint32_t value1, uint32_t value2, uint32_t value3, void* data);
typedef void JswViewFlag(uint32_t flag);
typedef void JswViewSavedValue(const char* valueName, const char* value);
typedef void JswViewSetEventCallback(JswViewEventCallback callback);
typedef void JswViewSetBillboardCallback(JswViewBillboardCallback callback);
typedef void JswViewSetSaveAppearanceCallback(JswViewSaveAppearanceCallback callback);
typedef void JswViewSetSaveValueCallback(JswViewSaveValueCallback callback);
typedef void JswViewSetUpdateSoftwareCallback(JswViewUpdateSoftwareCallback callback);

/**
 * The entry points.
 *
 * - SetDataPath: folder of the billboard data, without a trailing backslash; billboard files are in
 *   its "Scripts" folder. Empty: unknown, and there are no files.
 * - SetTotalPages: -1 or -2 if unknown.
 * - SetShowPageInfo: 0 if the number of pages is unknown, so that no "page 2 of 3" is shown.
 * - SetReserveModeCart1/2, SetCompleteAPrintMode: the printer's settings for an empty cartridge:
 *   use its reserve, finish the print. The window may show them; the library does not use them.
 * - DisplayBillboard: file name in the "Scripts" folder (empty: none), whether to offer Previous
 *   and Next, whether to restore a minimised window.
 * - SetShowProcessWindow, SetJswProgressMinimized, SetShowSpecialMessages, SetReserveModeCart1/2,
 *   SetCompleteAPrintMode, SetUpdateSoftware: non-zero is on.
 * - UpdateInfo: the driver's progress values unchanged (see JSWUpdateInfo).
 */
#define JSW_VIEW_ENTRY_POINTS(X)                                   \
    X(Initialize, JswViewPlain)                                    \
    X(Uninitialize, JswViewPlain)                                  \
    X(SetDataPath, JswViewText)                                    \
    X(SetJobName, JswViewText)                                     \
    X(SetPrinterFriendlyName, JswViewText)                         \
    X(SetJobType, JswViewNumber)                                   \
    X(SetCurrentPage, JswViewNumber)                               \
    X(SetTotalPages, JswViewNumber)                                \
    X(SetShowPageInfo, JswViewShowPageInfo)                        \
    X(SetCurrentCopy, JswViewNumber)                               \
    X(SetTotalCopies, JswViewNumber)                               \
    X(SetInkInfo, JswViewInkInfo)                                  \
    X(SetPortType, JswViewNumber)                                  \
    X(SetJswCallback, JswViewSetEventCallback)                     \
    X(SetBillboardCallback, JswViewSetBillboardCallback)           \
    X(DisplayBillboard, JswViewDisplayBillboard)                   \
    X(ShowGui, JswViewPlain)                                       \
    X(HideGui, JswViewPlain)                                       \
    X(UpdateInfo, JswViewUpdateInfo)                               \
    X(SetShowProcessWindow, JswViewFlag)                           \
    X(SetJswProgressMinimized, JswViewFlag)                        \
    X(SetShowSpecialMessages, JswViewFlag)                         \
    X(SetReserveModeCart1, JswViewFlag)                            \
    X(SetReserveModeCart2, JswViewFlag)                            \
    X(SetCompleteAPrintMode, JswViewFlag)                          \
    X(SetUpdateSoftware, JswViewFlag)                              \
    X(SetSaveAppearanceCallback, JswViewSetSaveAppearanceCallback) \
    X(SetSaveValueCallback, JswViewSetSaveValueCallback)           \
    X(SetUpdateSoftwareCallback, JswViewSetUpdateSoftwareCallback) \
    X(SetSavedValue, JswViewSavedValue)

/** Makes the linker report entry points that are not defined; see module.h. */
#define JSW_VIEW_REQUIRE_ENTRY_POINTS JSW_MODULE_REQUIRE(View, JSW_VIEW_ENTRY_POINTS)

#endif /* JSW_VIEW_H */
