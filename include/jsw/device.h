/**
 * @file device.h
 * The part of the device client's interface that jsw.dll uses. The device client is the printer
 * maker's library that finds and queries printers. This header is for authors of device clients, or
 * of replacements for tests.
 *
 * The text value "Settings\PcsClient" in the host's settings names the library's file, by default
 * "<local id>Comc.dll". jsw.dll looks up the undecorated entry points by name at every call. Each
 * returns a Win32 error number, 0 for success.
 *
 * Order of calls:
 *
 *     PcsInitialize, PcsGetClientId           before the first call of a user
 *     PcsEnumWindowsPrinters, PcsEnumHids, PcsEnumScanners, PcsGetString..., PcsGetCachePrinter
 *     PcsOpenPrinter, PcsExchangeBidiPrinter, PcsClosePrinter
 *     PcsUninitialize                         after a user's last call
 *
 * Every function may be called from any thread. Arguments are valid only during the call.
 */
#ifndef JSW_DEVICE_H
#define JSW_DEVICE_H

#include <jsw/module.h>

typedef uint32_t JswDeviceStatus;   /**< a Win32 error number */
typedef uint32_t JswDeviceClientId; /**< identifies a user of the client; from PcsGetClientId */
typedef int32_t JswDeviceHandle;    /**< a printer, HID or scanner interface; never 0 */

/**
 * Called once for each printer, on the enumerating thread before the function returns. The texts
 * are ANSI; friendlyName is the spooler's name of the printer, port its port. Returns 1 to
 * continue.
 */
typedef int32_t (*JswDevicePrinterCallback)(JswDeviceClientId client, JswDeviceHandle printer,
                                            const char* friendlyName, const char* port);
/** The same for each HID or scanner interface. */
typedef int32_t (*JswDeviceCallback)(JswDeviceClientId client, JswDeviceHandle device);

/** The transports that jsw.dll enumerates, and those of a locally connected printer. */
#define JSW_DEVICE_ALL_TRANSPORTS "ALL_TRANSPORT"
#define JSW_DEVICE_LOCAL_USB "USB1"
#define JSW_DEVICE_LOCAL_PARALLEL "PAR1"

/** The properties that jsw.dll reads with the PcsGetString functions. */
#define JSW_DEVICE_TRANSPORT_PROPERTY \
    "<Name>Transport</Name><Type>String</Type><Access>ReadOnly</Access>"
#define JSW_DEVICE_PORT_PROPERTY \
    "<Name>Portname</Name><Type>String</Type><Access>Writeable</Access>"

/* Function types of the entry points. */
/**
 * PcsInitialize: prepares the library for one more user. On failure it also sets the last error,
 * and the library is unloaded. PcsUninitialize: its counterpart, called before that user unloads
 * the library. Several users in a process may overlap.
 */
typedef JswDeviceStatus JswDeviceLifetime(void);
/** Returns the id that the user passes to all other calls. server: "" for this computer. */
typedef JswDeviceStatus JswDeviceGetClientId(JswDeviceClientId* client, const char* server);
/** Calls back for each printer. transports: JSW_DEVICE_ALL_TRANSPORTS. reserved: "". */
typedef JswDeviceStatus JswDeviceEnumPrinters(JswDeviceClientId client, const char* transports,
                                              const char* reserved,
                                              JswDevicePrinterCallback callback);
/** Calls back for each HID or scanner interface. */
typedef JswDeviceStatus JswDeviceEnum(JswDeviceClientId client, const char* transports,
                                      const char* reserved, JswDeviceCallback callback);
/**
 * Reads a text property of a printer, HID or scanner interface into a buffer of size bytes, with
 * its terminator; *length gets the number of characters.
 */
typedef JswDeviceStatus JswDeviceGetString(JswDeviceClientId client, JswDeviceHandle device,
                                           const char* property, char* buffer, uint32_t size,
                                           uint32_t* length);
/** Reads a printer's cache record into a buffer of size bytes; *length gets the bytes written. */
typedef JswDeviceStatus JswDeviceGetCache(JswDeviceClientId client, JswDeviceHandle printer,
                                          uint8_t* buffer, uint32_t size, uint32_t* length);
/** PcsOpenPrinter, PcsClosePrinter: begin and end an exchange. */
typedef JswDeviceStatus JswDeviceUse(JswDeviceClientId client, JswDeviceHandle printer);
/**
 * Sends a packet to an open printer and waits for its answer. *responseLength gets the length of
 * the answer, of which at most responseSize bytes are written.
 */
typedef JswDeviceStatus JswDeviceExchange(JswDeviceClientId client, JswDeviceHandle printer,
                                          const uint8_t* request, uint32_t requestLength,
                                          uint8_t* response, uint32_t responseSize,
                                          uint32_t* responseLength);

/** The entry points. */
#define JSW_DEVICE_ENTRY_POINTS(X)                   \
    X(PcsInitialize, JswDeviceLifetime)              \
    X(PcsUninitialize, JswDeviceLifetime)            \
    X(PcsGetClientId, JswDeviceGetClientId)          \
    X(PcsEnumWindowsPrinters, JswDeviceEnumPrinters) \
    X(PcsEnumHids, JswDeviceEnum)                    \
    X(PcsEnumScanners, JswDeviceEnum)                \
    X(PcsGetStringPrinter, JswDeviceGetString)       \
    X(PcsGetStringHid, JswDeviceGetString)           \
    X(PcsGetStringScanner, JswDeviceGetString)       \
    X(PcsGetCachePrinter, JswDeviceGetCache)         \
    X(PcsOpenPrinter, JswDeviceUse)                  \
    X(PcsExchangeBidiPrinter, JswDeviceExchange)     \
    X(PcsClosePrinter, JswDeviceUse)

/** Makes the linker report entry points that are not defined; see module.h. */
#define JSW_DEVICE_REQUIRE_ENTRY_POINTS JSW_MODULE_REQUIRE(Device, JSW_DEVICE_ENTRY_POINTS)

#endif /* JSW_DEVICE_H */
