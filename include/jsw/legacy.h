/**
 * @file legacy.h
 * Interface of the older job window module ("<id>jswo.dll"), which asks the user something while a
 * job prints. It is in the printer driver's own folder, on 64-bit Windows
 * %SystemRoot%\System32\spool\drivers\x64\3; no setting names another file.
 *
 * Order of calls for one prompt, all but JSWPostDlgMsg on the thread that asks:
 *
 *     JSWInitEx
 *     JSWDisplayPrompt       runs the dialog; returns when it is answered
 *         JSWPostDlgMsg      a message for the dialog, from inside its message loop
 *     JSWTerminate
 *
 * The module is loaded only during the prompt.
 */
#ifndef JSW_LEGACY_H
#define JSW_LEGACY_H

#include <jsw/module.h>

/* Function types of the entry points. */
/** Prepares a prompt for the printer with this friendly name; non-zero on success. */
typedef uint32_t JswLegacyInitEx(const char* friendlyName);
typedef void JswLegacyTerminate(void);
/**
 * Shows the prompt of this type until it is answered. The prompt types, and how the driver gets the
 * answer, are agreed between driver and module: the library passes both arguments through and
 * returns nothing.
 */
typedef void JswLegacyDisplayPrompt(int32_t promptType, int32_t totalPages);
/** Gets the driver's message unchanged. */
typedef void JswLegacyPostDlgMsg(void* message);

/** The entry points. */
#define JSW_LEGACY_ENTRY_POINTS(X)              \
    X(JSWInitEx, JswLegacyInitEx)               \
    X(JSWTerminate, JswLegacyTerminate)         \
    X(JSWDisplayPrompt, JswLegacyDisplayPrompt) \
    X(JSWPostDlgMsg, JswLegacyPostDlgMsg)

/** Makes the linker report entry points that are not defined; see module.h. */
#define JSW_LEGACY_REQUIRE_ENTRY_POINTS JSW_MODULE_REQUIRE(Legacy, JSW_LEGACY_ENTRY_POINTS)

#endif /* JSW_LEGACY_H */
