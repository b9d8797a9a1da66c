#pragma once

#include <jsw/device.h>

#include <cstdint>
#include <type_traits>

/// The device client library's functions, from which PcsClient's operations are generated.
///
/// One row of JSW_PCS_OPERATIONS at the end of this file is one operation: X(family, name, SHAPE).
/// PcsClient expands the rows into member functions. X(perCall, getCachePrinter, CACHE) becomes,
/// inside the class,
///     virtual PcsStatus getCachePrinter(PcsHandle handle, std::uint8_t* buffer,
///                                       std::uint32_t size, std::uint32_t* length) {
///         return perCall("getCachePrinter", handle, buffer, size, length);
///     }
/// JSW_PCS_PARAMS_CACHE and JSW_PCS_ARGS_CACHE are the two lists of that shape; PcsClient::perCall
/// acquires library and client id, looks up "PcsGetCachePrinter", calls it and releases both.
///
/// A shape is a list of parameters and the list of their names. The library passes the arguments
/// that it knows with their types. The functions that it never calls pass up to six pointer-sized
/// words unchanged; surplus ones are zero, which this platform's calling convention ignores.

namespace jsw {

using PcsStatus = JswDeviceStatus;
using PcsHandle = JswDeviceHandle;
using PcsWord = std::uintptr_t;

/// The kinds of devices that can be opened.
enum class PcsDevice { printer, hid, scanner, cardReader };

}  // namespace jsw

#define JSW_PCS_PARAMS_WORDS \
    PcsWord a = 0, PcsWord b = 0, PcsWord c = 0, PcsWord d = 0, PcsWord e = 0, PcsWord f = 0
#define JSW_PCS_ARGS_WORDS a, b, c, d, e, f

#define JSW_PCS_PARAMS_HANDLE PcsHandle handle
#define JSW_PCS_ARGS_HANDLE handle

#define JSW_PCS_PARAMS_HANDLE_WORDS PcsHandle handle, JSW_PCS_PARAMS_WORDS
#define JSW_PCS_ARGS_HANDLE_WORDS handle, JSW_PCS_ARGS_WORDS

#define JSW_PCS_PARAMS_ENUM_PRINTERS \
    const char *transports, const char *reserved, JswDevicePrinterCallback callback
#define JSW_PCS_ARGS_ENUM_PRINTERS transports, reserved, callback

#define JSW_PCS_PARAMS_ENUM const char *transports, const char *reserved, JswDeviceCallback callback
#define JSW_PCS_ARGS_ENUM transports, reserved, callback

#define JSW_PCS_PARAMS_STRING \
    PcsHandle handle, const char *property, char *buffer, std::uint32_t size, std::uint32_t *length
#define JSW_PCS_ARGS_STRING handle, property, buffer, size, length

#define JSW_PCS_PARAMS_CACHE \
    PcsHandle handle, std::uint8_t *buffer, std::uint32_t size, std::uint32_t *length
#define JSW_PCS_ARGS_CACHE handle, buffer, size, length

#define JSW_PCS_PARAMS_EXCHANGE                                                 \
    PcsHandle handle, const std::uint8_t *request, std::uint32_t requestLength, \
        std::uint8_t *response, std::uint32_t responseSize, std::uint32_t *responseLength
#define JSW_PCS_ARGS_EXCHANGE handle, request, requestLength, response, responseSize, responseLength

// The typed shapes match the public header, apart from the client id.
#define JSW_PCS_FITS(SHAPE, Type) \
    static_assert(std::is_same_v<jsw::PcsStatus(JswDeviceClientId, JSW_PCS_PARAMS_##SHAPE), Type>)
namespace jsw {
JSW_PCS_FITS(HANDLE, JswDeviceUse);
JSW_PCS_FITS(ENUM_PRINTERS, JswDeviceEnumPrinters);
JSW_PCS_FITS(ENUM, JswDeviceEnum);
JSW_PCS_FITS(STRING, JswDeviceGetString);
JSW_PCS_FITS(CACHE, JswDeviceGetCache);
JSW_PCS_FITS(EXCHANGE, JswDeviceExchange);
}  // namespace jsw
#undef JSW_PCS_FITS

/// Every operation in slot order: X(family, operation, SHAPE) for a library function, whose name is
/// "Pcs" + the operation with a capital initial; Y(operation) for one of PcsClient's own. The
/// families are PcsClient's member templates.
#define JSW_PCS_OPERATIONS(X, Y)                                    \
    X(byHandle, cancelJobPrinter, HANDLE_WORDS)                     \
    X(perCall, getHostInfo, WORDS)                                  \
    X(perCall, setHostInfo, WORDS)                                  \
    Y(closeAllPrinters)                                             \
    X(closing, closePrinter, HANDLE)                                \
    X(perCall, deletePrinter, WORDS)                                \
    X(perCall, discovery, WORDS)                                    \
    X(byHandle, endJobPrinter, HANDLE_WORDS)                        \
    X(perCall, enumPrinters, WORDS)                                 \
    X(perCall, enumSpecificPrinter, WORDS)                          \
    X(byHandle, exchangeNpaPrinter, HANDLE_WORDS)                   \
    X(byHandle, exchangeBidiPrinter, EXCHANGE)                      \
    X(perCall, getByteArrayPrinter, WORDS)                          \
    X(perCall, getCachePrinter, CACHE)                              \
    X(perCall, getCurrentStatePrinter, WORDS)                       \
    X(perCall, getDiscoveryDefaults, WORDS)                         \
    X(perCall, getLongPrinter, WORDS)                               \
    X(perCall, getStringPrinter, STRING)                            \
    X(opening<PcsDevice::printer>, openPrinter, HANDLE)             \
    X(byHandle, registerForAlertsPrinter, HANDLE_WORDS)             \
    X(byHandle, registerForNotificationsPrinter, HANDLE_WORDS)      \
    X(perCall, setByteArrayPrinter, WORDS)                          \
    X(perCall, setDiscoveryDefaults, WORDS)                         \
    X(perCall, setClientInfo, WORDS)                                \
    X(perCall, setLongPrinter, WORDS)                               \
    X(perCall, setStringPrinter, WORDS)                             \
    X(byHandle, startJobPrinter, HANDLE_WORDS)                      \
    X(byHandle, startJobPrinterW, HANDLE_WORDS)                     \
    X(perCallHid, enumHids, ENUM)                                   \
    X(perCall, enumSpecificHid, WORDS)                              \
    X(perCall, getStringHid, STRING)                                \
    X(perCall, getLongHid, WORDS)                                   \
    X(opening<PcsDevice::hid>, openHid, HANDLE)                     \
    X(byHandle, registerForReportsHid, HANDLE_WORDS)                \
    X(byHandle, unregisterForReportsHid, HANDLE_WORDS)              \
    X(byHandle, registerForNotificationsHid, HANDLE_WORDS)          \
    X(byHandle, unregisterForNotificationsHid, HANDLE_WORDS)        \
    Y(closeAllHids)                                                 \
    X(closing, closeHid, HANDLE)                                    \
    X(perCall, deleteHid, WORDS)                                    \
    X(perCall, getCurrentStateHid, WORDS)                           \
    X(perCallHid, enumWindowsHids, WORDS)                           \
    X(perCallHid, enumWindowsScanners, WORDS)                       \
    X(perCallHid, enumWindowsPrinters, ENUM_PRINTERS)               \
    X(closing, closeScanner, HANDLE)                                \
    X(byHandle, endJobScanner, HANDLE_WORDS)                        \
    X(byHandle, cancelJobScanner, HANDLE_WORDS)                     \
    X(perCall, enumScanners, ENUM)                                  \
    X(perCall, enumSpecificScanner, WORDS)                          \
    X(byHandle, exchangeDataScanner, EXCHANGE)                      \
    X(byHandle, exchangeDataScanner, HANDLE_WORDS)                  \
    X(perCall, getLongScanner, WORDS)                               \
    X(perCall, getStringScanner, STRING)                            \
    X(opening<PcsDevice::scanner>, openScanner, HANDLE)             \
    X(byHandle, startJobScanner, HANDLE_WORDS)                      \
    X(byHandle, registerForAsyncDataScanner, HANDLE_WORDS)          \
    X(byHandle, unregisterForAsyncDataScanner, HANDLE_WORDS)        \
    X(perCall, getCurrentStateScanner, WORDS)                       \
    Y(acquire)                                                      \
    Y(release)                                                      \
    X(byHandle, unregisterForAlertsPrinter, HANDLE_WORDS)           \
    X(byHandle, unregisterForNotificationsPrinter, HANDLE_WORDS)    \
    X(perCall, validatePortName, WORDS)                             \
    X(byHandle, writePrinter, HANDLE_WORDS)                         \
    X(opening<PcsDevice::cardReader>, openCardReader, HANDLE)       \
    X(closing, closeCardReader, HANDLE)                             \
    X(perCall, enumSpecificCardReader, WORDS)                       \
    X(perCall, enumCardReaders, WORDS)                              \
    X(byHandle, exchangeBidiCardReader, HANDLE_WORDS)               \
    X(byHandle, registerForReportsCardReader, HANDLE_WORDS)         \
    X(byHandle, unregisterForReportsCardReader, HANDLE_WORDS)       \
    X(byHandle, registerForNotificationsCardReader, HANDLE_WORDS)   \
    X(byHandle, unregisterForNotificationsCardReader, HANDLE_WORDS) \
    X(byHandle, registerForAsyncDataCardReader, HANDLE_WORDS)       \
    X(byHandle, unregisterForAsyncDataCardReader, HANDLE_WORDS)     \
    X(installCall, install, WORDS)                                  \
    X(serviceCall, uninstall, WORDS)                                \
    X(serviceCall, resume, WORDS)                                   \
    X(serviceCall, suspend, WORDS)                                  \
    X(serviceCall, addTransport, WORDS)                             \
    X(serviceCall, removeTransport, WORDS)                          \
    X(serviceCall, addMonitor, WORDS)                               \
    Y(checkServerName)                                              \
    X(byHandle, registerForSystemNotifications, HANDLE_WORDS)       \
    X(byHandle, unregisterForSystemNotifications, HANDLE_WORDS)     \
    X(perCall, cancelDiscovery, WORDS)                              \
    X(perCall, setJobStringScanner, WORDS)                          \
    X(perCall, setJobStringPrinter, WORDS)                          \
    X(perCall, getJobStringScanner, WORDS)
