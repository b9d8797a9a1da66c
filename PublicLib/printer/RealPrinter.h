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
/// interfaces by its port. A printer shared from another computer is known, but not talked to: the
/// client is not loaded for it.
class RealPrinter final : public NullPrinter {
  public:
    explicit RealPrinter(const std::string& friendlyName);
    ~RealPrinter() override;

    /// Finds the printer; false when the client or the printer cannot be had.
    bool init() override;
    /// Does nothing; 0.
    std::uint32_t print(const std::string& fileName) override;

    // The cache, in RealPrinterCache.cpp.

    /// Reads the cache at the first call; any threads may make it. A cache that cannot be read, and
    /// that of a printer shared from another computer, is a NullPrinterCache from then on. Throws
    /// Exception only when memory is short even for that.
    IPrinterCache& getCache() override;

    // Questions to the device itself, in RealPrinterExchanges.cpp.

    /// Sends a loopback packet. 6 without a printer handle, 2 without a client, 13 for a wrong
    /// answer, otherwise the client's status.
    std::uint32_t ping() override;
    /// Asks the device until it has answered once, for whichever thread; -1 on any failure.
    std::int32_t getPrintHeadType() override;

    // The steps of init(), in RealPrinterDiscovery.cpp: the discovery, one at a time in a process,
    // and the matching of what it has found, which answers the handle chosen, 0 for none.

    bool queryDeviceInfo();
    std::int32_t processPrinters();
    std::int32_t processHidList(PcsClient& client);
    std::int32_t processScannerList(PcsClient& client);

    /// Given to the client, which calls them once for each device it knows; 1 to go on.
    static std::int32_t enumPrtCallback(JswDeviceClientId clientId, JswDeviceHandle handle,
                                        const char* friendlyName, const char* port);
    static std::int32_t enumHidCallback(JswDeviceClientId clientId, JswDeviceHandle handle);
    static std::int32_t enumScanCallback(JswDeviceClientId clientId, JswDeviceHandle handle);

  private:
    bool isSharedFromElsewhere(MethodTrace& trace);
    bool findPrinter(PcsClient& client, MethodTrace& trace);
    void readTransport(PcsClient& client, MethodTrace& trace);
    void findInterfaces(PcsClient& client, MethodTrace& trace);
    /// A client of this printer's library, with nothing loaded yet; null when memory is short.
    std::unique_ptr<PcsClient> makeClient(bool keepLoaded) const;
    std::shared_ptr<IPrinterCache> readCache(MethodTrace& trace) const;
    JswDeviceStatus fetchCache(std::vector<std::uint8_t>& stream) const;
    /// Opens the printer, sends a request, closes it again. Answers the status of the step that
    /// failed, which is logged; length gets the length of the response.
    JswDeviceStatus exchange(std::span<const std::uint8_t> request,
                             std::span<std::uint8_t> response, std::uint32_t& length,
                             MethodTrace& trace) const;
    std::int32_t askPrintHeadClass(MethodTrace& trace) const;

    bool sharedFromElsewhere_ = false;
    CriticalSection printHeadLock_;  // printHeadClassKnown_ and, once that is set, the class
    bool printHeadClassKnown_ = false;
    CriticalSection cacheLock_;
    // Made from the concrete type, whose destructor runs; the interface has no virtual one.
    std::shared_ptr<IPrinterCache> cache_;
};

}  // namespace jsw
