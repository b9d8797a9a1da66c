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
    trace.setResult(fields_.printHeadClass);
    return fields_.printHeadClass;
}

#define JSW_PRINTER_GETTER(Type, getter, field)                            \
    Type NullPrinter::getter() const {                                     \
        MethodTrace trace(component::kJsw, "NullPrinter::" #getter "():"); \
        trace.setResult(fields_.field);                                    \
        return fields_.field;                                              \
    }

JSW_PRINTER_GETTER(std::string, getFriendlyName, friendlyName)
JSW_PRINTER_GETTER(std::string, getPort, port)
JSW_PRINTER_GETTER(std::string, getPcsClientDllName, pcsClientDllName)
JSW_PRINTER_GETTER(std::int32_t, getPrtHandle, prtHandle)
JSW_PRINTER_GETTER(std::int32_t, getHidHandle, hidHandle)
JSW_PRINTER_GETTER(std::int32_t, getScannerHandle, scannerHandle)

#undef JSW_PRINTER_GETTER

#define JSW_PRINTER_SETTER(Type, setter, field, argument)                                      \
    void NullPrinter::setter(Type value) {                                                     \
        MethodTrace trace(component::kJsw, "NullPrinter::" #setter "(" argument, value, "):"); \
        fields_.field = value;                                                                 \
    }

JSW_PRINTER_SETTER(std::int32_t, setPrtHandle, prtHandle, "value=")
JSW_PRINTER_SETTER(std::int32_t, setHidHandle, hidHandle, "value=")
JSW_PRINTER_SETTER(std::int32_t, setScannerHandle, scannerHandle, "value=")
JSW_PRINTER_SETTER(bool, setPrt, prt, "value=")
JSW_PRINTER_SETTER(bool, setScanner, scanner, "value=")
JSW_PRINTER_SETTER(bool, setHid, hid, "value=")
JSW_PRINTER_SETTER(const std::string&, setNetwork, network, "value=")
JSW_PRINTER_SETTER(const std::string&, setPort, port, "value=")
JSW_PRINTER_SETTER(const std::string&, setPcsClientDllName, pcsClientDllName, "value=")
JSW_PRINTER_SETTER(std::int32_t, setPrintHeadClass, printHeadClass, "printHeadClass = ")

#undef JSW_PRINTER_SETTER

}  // namespace jsw
