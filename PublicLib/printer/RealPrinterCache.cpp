// How RealPrinter reads its cache, and the substitute for one that cannot be read.

#include "PublicLib/errors/ErrorPlaces.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/PcsClient.h"
#include "PublicLib/printer/PrinterCache.h"
#include "PublicLib/printer/RealPrinter.h"

#include <windows.h>

#include <algorithm>
#include <exception>
#include <mutex>
#include <new>
#include <vector>

namespace jsw {

namespace {

constexpr std::size_t kCacheSize = 4096;

std::shared_ptr<IPrinterCache> makeNullCache() {
    try {
        return std::make_shared<NullPrinterCache>();
    } catch (const std::bad_alloc&) {
        logLine(component::kJsw, kLogError,
                "ERROR - unable to allocate memory for NullPrinterCache!");
        throw Exception("No memory", ERROR_NOT_ENOUGH_MEMORY, place::kNullCacheMemory);
    }
}

}  // namespace

IPrinterCache& RealPrinter::getCache() {
    MethodTrace trace(component::kJsw, "RealPrinter::getCache: ");
    const std::lock_guard lock(cacheLock_);
    if (!cache_) {
        cache_ = readCache(trace);
        trace.add("PrinterCache");
    }
    return *cache_;
}

/// Never null.
std::shared_ptr<IPrinterCache> RealPrinter::readCache(MethodTrace& trace) const {
    if (sharedFromElsewhere_) {
        trace.add("Using NullPrinterCache");
        return makeNullCache();
    }
    std::vector<std::uint8_t> stream;
    try {
        stream.resize(kCacheSize);
    } catch (const std::bad_alloc&) {
        logLine(component::kJsw, kLogError,
                "ERROR - unable to allocate memory for cache, using NullPrinterCache!");
        return makeNullCache();
    }
    const PcsStatus status = fetchCache(stream);
    if (status != ERROR_SUCCESS) {
        trace.add("pcsClient->getCachePrinter rc=", status);
        trace.add("Using NullPrinterCache");
        return makeNullCache();
    }
    try {
        return std::make_shared<PrinterCache>(stream.data(), stream.size());
    } catch (const std::exception&) {
        logLine(component::kJsw, kLogError,
                "ERROR - unable to create PrinterCache, using NullPrinterCache!!!");
        return makeNullCache();
    }
}

/// Fills the buffer and cuts it to the bytes that were read.
JswDeviceStatus RealPrinter::fetchCache(std::vector<std::uint8_t>& stream) const {
    const auto client = makeClient(true);
    if (!client) return ERROR_NOT_ENOUGH_MEMORY;
    std::uint32_t length = 0;
    const auto size = static_cast<std::uint32_t>(stream.size());
    const PcsStatus status =
        client->getCachePrinter(fields().prtHandle, stream.data(), size, &length);
    stream.resize(std::min(length, size));
    return status;
}

}  // namespace jsw
