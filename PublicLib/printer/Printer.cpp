#include "PublicLib/printer/Printer.h"

#include "PublicLib/errors/ErrorPlaces.h"
#include "PublicLib/locks/Singleton.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/NullPrinter.h"
#include "PublicLib/printer/RealPrinter.h"
#include "PublicLib/printer/SimulatedPrinter.h"

namespace jsw {

namespace {

std::unique_ptr<NullPrinter> makePrinter(const std::string& friendlyName) {
    if (equalsIgnoringCase(friendlyName, SimulatedPrinter::kReservedName)) {
        return std::make_unique<SimulatedPrinter>(friendlyName);
    }
    return std::make_unique<RealPrinter>(friendlyName);
}

}  // namespace

std::shared_ptr<Printer> Printer::instance(const std::string& friendlyName) {
    MethodTrace trace(component::kJsw, "Printer::instance(friendlyName=", friendlyName, "):");
    return singleton<Printer>->instance([&] {
        trace.add("creating Printer.");
        return std::make_shared<Printer>(friendlyName);
    });
}

void Printer::destroy() {
    MethodTrace trace(component::kJsw, "Printer::destroy: ");
    singleton<Printer>->destroy([&] { trace.add("destroying Printer."); });
}

Printer::Printer(const std::string& friendlyName) {
    MethodTrace trace(component::kJsw, "Printer::Printer(friendlyName =", friendlyName, "): ");
    if (!initialize(friendlyName)) {
        throw Exception("Printer::Printer - initialization failed", 0, place::kPrinterInitialize);
    }
}

Printer::~Printer() {
    MethodTrace trace(component::kJsw, "Printer::~Printer()");
    if (printer_) trace.add("destroying Printer.");
    printer_.reset();
}

IPrinterCache& Printer::getCache() {
    MethodTrace trace(component::kJsw, "Printer::getCache():");
    trace.add("PrinterCache");
    return printer_->getCache();
}

std::string Printer::getFriendlyName() const {
    MethodTrace trace(component::kJsw, "Printer::getFriendlyName():");
    return trace.returning(printer_->getFriendlyName());
}

/// Always true: the fallback is a null printer.
bool Printer::initialize(const std::string& friendlyName) {
    MethodTrace trace(component::kJsw, "Printer::initialize(friendlyName =", friendlyName, "): ");
    trace.setResult(1);
    printer_.reset();
    if (friendlyName.empty()) {
        logLine(component::kJsw, kLogError, "Error - friendlyName len <= 0.");
        switchToNullPrinter(friendlyName, trace);
        return true;
    }
    printer_ = makePrinter(friendlyName);
    if (!printer_->init()) switchToNullPrinter(friendlyName, trace);
    return true;
}

void Printer::switchToNullPrinter(const std::string& friendlyName, MethodTrace& trace) {
    trace.add("Invalid friendly name. Switching to NullPrinter");
    printer_.reset();
    printer_ = std::make_unique<NullPrinter>(friendlyName);
    printer_->init();
}

}  // namespace jsw
