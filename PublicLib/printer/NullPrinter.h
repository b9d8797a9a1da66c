#pragma once

#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/ValuesPrinterCache.h"

#include <cstdint>
#include <string>

namespace jsw {

/// The printer used when no other can be reached, and the base of those that can: it answers every
/// question with a default. Not locked; set up by one thread, then read by any.
class NullPrinter {
  public:
    explicit NullPrinter(const std::string& friendlyName);
    NullPrinter(const NullPrinter&) = delete;
    NullPrinter& operator=(const NullPrinter&) = delete;

    /// True when the printer is usable. This one forgets everything, its friendly name included.
    virtual bool init();
    /// A Win32 error number, 0 for success; so does ping().
    virtual std::uint32_t print(const std::string& fileName);
    /// Lives as long as the printer.
    virtual IPrinterCache& getCache();
    virtual std::uint32_t ping();
    /// 0 to 255, or -1 when it is not known.
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
    /// Handles of the device client, 0 for none.
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
    /// "LOCAL_TRANSPORT" or "NETWORK_TRANSPORT"; empty when it is not known.
    JSW_PRINTER_SETTER(const std::string&, setNetwork, network, "value=")
    JSW_PRINTER_SETTER(const std::string&, setPort, port, "value=")
    JSW_PRINTER_SETTER(const std::string&, setPcsClientDllName, pcsClientDllName, "value=")
    JSW_PRINTER_SETTER(std::int32_t, setPrintHeadClass, printHeadClass, "printHeadClass = ")

#undef JSW_PRINTER_GETTER
#undef JSW_PRINTER_SETTER

  protected:
    static constexpr char kLocalTransport[] = "LOCAL_TRANSPORT";
    static constexpr char kNetworkTransport[] = "NETWORK_TRANSPORT";

    /// For the derived classes' own steps, where the accessors' traces would be noise.
    struct Fields {
        std::int32_t prtHandle = 0;
        std::int32_t hidHandle = 0;
        std::int32_t scannerHandle = 0;
        bool prt = false;
        bool scanner = false;
        bool hid = false;
        std::string text{};  // free for the derived classes; no operation here reads it
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
