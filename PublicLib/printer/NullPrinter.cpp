#include "PublicLib/printer/NullPrinter.h"

#include "PublicLib/logging/MethodTrace.h"

#include <windows.h>

namespace jsw {

NullPrinter::NullPrinter(const std::string& friendlyName) {
    MethodTrace trace(component::kJsw, "NullPrinter::NullPrinter(friendlyName=", friendlyName,
                      "):");
    fields_.friendlyName = friendlyName;
}

NullPrinter::~NullPrinter() = default;

bool NullPrinter::init() {
    MethodTrace trace(component::kJsw, "NullPrinter::init()");
    fields_ = {};
    return true;
}

std::uint32_t NullPrinter::print(const std::string& fileName) {
    MethodTrace trace(component::kJsw, "NullPrinter::print():");
    trace.add(fileName);
    return ERROR_DEV_NOT_EXIST;
}

IPrinterCache& NullPrinter::getCache() {
    MethodTrace trace(component::kJsw, "NullPrinter::getCache():");
    return nullCache_;
}

std::uint32_t NullPrinter::ping() {
    MethodTrace trace(component::kJsw, "NullPrinter::ping():");
    return ERROR_DEV_NOT_EXIST;
}

std::int32_t NullPrinter::getPrintHeadType() {
    MethodTrace trace(component::kJsw, "NullPrinter::getPrintHeadType():");
    return trace.returning(fields_.printHeadClass);
}

}  // namespace jsw
