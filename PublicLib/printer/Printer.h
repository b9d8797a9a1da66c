#pragma once

#include "PublicLib/printer/IPrinterCache.h"

#include <memory>
#include <string>

namespace jsw {

class MethodTrace;
class NullPrinter;

/// The job's printer. Whatever its friendly name leads to - a device, the built-in simulated
/// printer "SimulatedPrinter" or nothing at all - there is always a printer that answers; one that
/// cannot be reached answers with the defaults of NullPrinter.
///
/// Every thread may ask; the printer behind it is chosen once, at construction.
class Printer {
  public:
    /// The process's printer, made for this friendly name when there is none yet; a later call
    /// with another name gives the printer that exists. The answer stays valid while it is held.
    static std::shared_ptr<Printer> instance(const std::string& friendlyName);
    /// Lets go of the process's printer; does nothing without one.
    static void destroy();

    /// @param friendlyName  name by which the spooler knows the printer; letter case counts
    explicit Printer(const std::string& friendlyName);
    ~Printer();
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    /// Lives as long as this object. The first call reads the cache from the device.
    IPrinterCache& getCache();

    /// Empty when the name led to no usable printer.
    std::string getFriendlyName() const;

  private:
    bool initialize(const std::string& friendlyName);
    void switchToNullPrinter(const std::string& friendlyName, MethodTrace& trace);

    std::unique_ptr<NullPrinter> printer_;
};

}  // namespace jsw
