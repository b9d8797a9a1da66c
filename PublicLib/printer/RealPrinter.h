#pragma once

#include "PublicLib/locks/CriticalSection.h"
#include "PublicLib/printer/NullPrinter.h"
#include <jsw/device.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace jsw {

class MethodTrace;
class PcsClient;

/// A printer reached through the device client: found by its friendly name, its HID and scanner
/// interfaces by its port. For a printer shared from another computer the client is not loaded.
class RealPrinter final : public NullPrinter {
  public:
    explicit RealPrinter(const std::string& friendlyName);
    ~RealPrinter() override;

    /// Finds the printer; false if the client or the printer is unavailable.
    [[nodiscard]] bool init() override;
    /// Does nothing; returns 0.
    std::uint32_t print(const std::string& fileName) override;

    // The cache, in RealPrinterCache.cpp.

    /// The first call, on any thread, reads the cache. If it cannot be read, or the printer is
    /// shared from another computer, the cache is a NullPrinterCache. Throws Exception only if
    /// there is no memory for that either.
    IPrinterCache& getCache() override;

    // Queries to the device, in RealPrinterExchanges.cpp.

    /// Sends a loopback packet. Returns 6 without a printer handle, 2 without a client, 13 for a
    /// wrong response, otherwise the client's status.
    std::uint32_t ping() override;
    /// Queries the device until it has answered once; -1 on failure.
    std::int32_t getPrintHeadType() override;

    // The steps of init(), in RealPrinterDiscovery.cpp: the discovery, one at a time in a process,
    // and the matching, which returns the chosen handle or 0.

    [[nodiscard]] bool queryDeviceInfo();
    std::int32_t processPrinters();
    std::int32_t processHidList(PcsClient& client);
    std::int32_t processScannerList(PcsClient& client);

    /// Callbacks for the client, called once for each device; return 1 to continue.
    static std::int32_t enumPrtCallback(JswDeviceClientId clientId, JswDeviceHandle handle,
                                        const char* friendlyName, const char* port);
    static std::int32_t enumHidCallback(JswDeviceClientId clientId, JswDeviceHandle handle);
    static std::int32_t enumScanCallback(JswDeviceClientId clientId, JswDeviceHandle handle);

  private:
    bool isSharedFromElsewhere(MethodTrace& trace);
    [[nodiscard]] bool findPrinter(PcsClient& client, MethodTrace& trace);
    void readTransport(PcsClient& client, MethodTrace& trace);
    void findInterfaces(PcsClient& client, MethodTrace& trace);
    /// A client of this printer's library, not loaded yet; null if memory is exhausted.
    std::unique_ptr<PcsClient> makeClient(bool keepLoaded) const;
    std::shared_ptr<IPrinterCache> readCache(MethodTrace& trace) const;
    JswDeviceStatus fetchCache(std::vector<std::uint8_t>& stream) const;
    /// Opens the printer, sends a request, closes the printer. Returns the status of the failed
    /// step, which is logged; length gets the response's length.
    JswDeviceStatus exchange(std::span<const std::uint8_t> request,
                             std::span<std::uint8_t> response, std::uint32_t& length,
                             MethodTrace& trace) const;
    std::int32_t askPrintHeadClass(MethodTrace& trace) const;

    bool sharedFromElsewhere_ = false;
    CriticalSection printHeadLock_;  // printHeadClassKnown_ and, once that is set, the class
    bool printHeadClassKnown_ = false;
    CriticalSection cacheLock_;  // cache_
    // Created from the concrete type, whose destructor runs; the interface has no virtual one.
    std::shared_ptr<IPrinterCache> cache_;
};

}  // namespace jsw
