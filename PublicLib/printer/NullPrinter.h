#pragma once

#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/ValuesPrinterCache.h"

#include <cstdint>
#include <string>

namespace jsw {

/// The printer that replaces an unreachable one, and the base class of the others: it answers every
/// query with a default. Set up by one thread; afterwards any thread may read it.
class NullPrinter {
  public:
    explicit NullPrinter(const std::string& friendlyName);
    NullPrinter(const NullPrinter&) = delete;
    NullPrinter& operator=(const NullPrinter&) = delete;

    /// True if the printer is usable. This one clears everything, including its friendly name.
    virtual bool init();
    /// Returns a Win32 error number, 0 for success, like ping().
    virtual std::uint32_t print(const std::string& fileName);
    /// Valid during the printer's lifetime.
    virtual IPrinterCache& getCache();
    virtual std::uint32_t ping();
    /// 0 to 255; -1: unknown.
    virtual std::int32_t getPrintHeadType();
    virtual ~NullPrinter();

    // The accessors, each with its trace.

#define JSW_PRINTER_GETTER(Type, getter, field)                            \
    Type getter() const {                                                  \
        MethodTrace trace(component::kJsw, "NullPrinter::" #getter "():"); \
        return trace.returning(fields_.field);                             \
    }
#define JSW_PRINTER_SETTER(Type, setter, field, argument)                                      \
    void setter(Type value) {                                                                  \
        MethodTrace trace(component::kJsw, "NullPrinter::" #setter "(" argument, value, "):"); \
        fields_.field = value;                                                                 \
    }

    JSW_PRINTER_GETTER(std::string, getFriendlyName, friendlyName)
    JSW_PRINTER_GETTER(std::string, getPort, port)
    JSW_PRINTER_GETTER(std::string, getPcsClientDllName, pcsClientDllName)
    /// Handles of the device client; 0: none.
    JSW_PRINTER_GETTER(std::int32_t, getPrtHandle, prtHandle)
    JSW_PRINTER_GETTER(std::int32_t, getHidHandle, hidHandle)
    JSW_PRINTER_GETTER(std::int32_t, getScannerHandle, scannerHandle)

    JSW_PRINTER_SETTER(std::int32_t, setPrtHandle, prtHandle, "value=")
    JSW_PRINTER_SETTER(std::int32_t, setHidHandle, hidHandle, "value=")
    JSW_PRINTER_SETTER(std::int32_t, setScannerHandle, scannerHandle, "value=")
    /// Whether an interface of that kind was found.
    JSW_PRINTER_SETTER(bool, setPrt, prt, "value=")
    JSW_PRINTER_SETTER(bool, setScanner, scanner, "value=")
    JSW_PRINTER_SETTER(bool, setHid, hid, "value=")
    /// "LOCAL_TRANSPORT" or "NETWORK_TRANSPORT"; empty: unknown.
    JSW_PRINTER_SETTER(const std::string&, setNetwork, network, "value=")
    JSW_PRINTER_SETTER(const std::string&, setPort, port, "value=")
    JSW_PRINTER_SETTER(const std::string&, setPcsClientDllName, pcsClientDllName, "value=")
    JSW_PRINTER_SETTER(std::int32_t, setPrintHeadClass, printHeadClass, "printHeadClass = ")

#undef JSW_PRINTER_GETTER
#undef JSW_PRINTER_SETTER

  protected:
    static constexpr char kLocalTransport[] = "LOCAL_TRANSPORT";
    static constexpr char kNetworkTransport[] = "NETWORK_TRANSPORT";

    /// For the derived classes, where the accessors' traces would be noise.
    struct Fields {
        std::int32_t prtHandle = 0;
        std::int32_t hidHandle = 0;
        std::int32_t scannerHandle = 0;
        bool prt = false;
        bool scanner = false;
        bool hid = false;
        std::string text{};  // for the derived classes; not read here
        std::string pcsClientDllName{};
        std::string network{};
        std::string port{};
        std::string friendlyName{};
        std::int32_t printHeadClass = -1;
    };
    Fields& fields() {
        return fields_;
    }
    const Fields& fields() const {
        return fields_;
    }

  private:
    Fields fields_;
    NullPrinterCache nullCache_;
};

}  // namespace jsw
