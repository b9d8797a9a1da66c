/**
 * @file view.h
 * Interface of the view module ("<id>jswv.dll"), which draws the job window and its billboard. It
 * lies in the folder "DllPath" of the host's settings; the value "View" may name another file.
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
 *     SetSavedValue                         once for each value kept from earlier jobs
 *     ShowGui                               unless the user has switched the window off
 *     UpdateInfo, DisplayBillboard          any number of times
 *     HideGui
 *     Uninitialize
 *
 * Threads: the calls come from the driver's threads, which may call the library from inside its
 * status callback, so also from the module's own thread inside an event callback: every entry point
 * must serve that, and HideGui and Uninitialize must not wait there for the thread they run on.
 * DisplayBillboard comes from a worker thread and from inside a billboard callback, too; HideGui
 * and Uninitialize may come from the worker thread. The module may call back from any thread, also
 * from inside an entry point. After Uninitialize has returned it must not call back any more;
 * callbacks that come late all the same are ignored as long as jsw.dll is loaded. A click that is
 * being carried out at that moment may still lead to a DisplayBillboard, which is to do nothing.
 *
 * Memory: strings and records belong to jsw.dll and are valid only during the call. Strings passed
 * to a callback belong to the module and need to be valid only during the call.
 *
 * The module stays loaded until the process ends; several jobs of one process follow each other.
 */
#ifndef JSW_VIEW_H
#define JSW_VIEW_H

#include <jsw/module.h>

/** Reports a window event: a JswStatus code or any other value of the module's own. */
typedef void (*JswViewEventCallback)(int32_t event);

/**
 * Reports a click in the billboard. Actions, in any letter case: LAUNCH_URL, LAUNCH_APP (actionId
 * counts the billboard's actions from 0), NEXT, PREVIOUS, CURRENT, INK_STATUS; others do nothing.
 */
typedef void (*JswViewBillboardCallback)(const char* action, int32_t actionId);

/**
 * Keeps an appearance choice for later jobs. Keys, in any letter case: "Job Progress Minimized",
 * "Show Process Window", "Show Special Messages"; others are refused.
 */
typedef void (*JswViewSaveAppearanceCallback)(const char* key, int32_t value);

/** Keeps a value of the module's own; it comes back through SetSavedValue at the next job. */
typedef void (*JswViewSaveValueCallback)(const char* key, const char* value);

/** Keeps the user's choice whether to look for updates: 1 yes, 0 no. */
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
 * SetDataPath: folder of the billboard data, without a trailing backslash; billboard files lie in
 * its "Scripts" folder (empty: not known, then there are no files). SetTotalPages: -1 or -2 when
 * not known. SetShowPageInfo: 0 exactly then, so that a window shows no "page 2 of 3".
 * SetReserveModeCart1/2, SetCompleteAPrintMode: how the printer's settings say that it deals with
 * an empty cartridge, by its reserve and by finishing the print; for the window to show, the
 * library itself does nothing with them. DisplayBillboard: file name within the "Scripts" folder
 * (empty: none), whether to offer Previous and Next, whether to bring a minimised window back.
 * SetShowProcessWindow, SetJswProgressMinimized, SetShowSpecialMessages, SetReserveModeCart1/2,
 * SetCompleteAPrintMode, SetUpdateSoftware: non-zero is on. UpdateInfo: the driver's progress
 * values as they came (see JSWUpdateInfo).
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
