#pragma once

#include "PublicLib/printer/IPrinterCache.h"

#include <memory>
#include <string>

namespace jsw {

class MethodTrace;
class NullPrinter;

/// The job's printer: the device with its friendly name, or the built-in simulated printer
/// "SimulatedPrinter". If neither can be reached, it answers with the defaults of NullPrinter.
///
/// Thread-safe: the device is chosen once, in the constructor.
class Printer {
  public:
    /// The process's printer, created for this friendly name if there is none. A later call with
    /// another name returns the existing printer. It stays valid while it is held.
    static std::shared_ptr<Printer> instance(const std::string& friendlyName);
    /// Releases the process's printer; does nothing without one.
    static void destroy();

    /// @param friendlyName  the printer's name in the spooler; letter case matters
    explicit Printer(const std::string& friendlyName);
    ~Printer();
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    /// Valid during this object's lifetime. The first call reads the cache from the device.
    IPrinterCache& getCache();

    /// Empty if no usable printer has the name.
    std::string getFriendlyName() const;

  private:
    bool initialize(const std::string& friendlyName);
    void switchToNullPrinter(const std::string& friendlyName, MethodTrace& trace);

    std::unique_ptr<NullPrinter> printer_;
};

}  // namespace jsw
