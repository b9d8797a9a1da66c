#pragma once

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

    std::string getFriendlyName() const;
    std::string getPort() const;
    std::string getPcsClientDllName() const;
    /// Handles of the device client, 0 for none.
    std::int32_t getPrtHandle() const;
    std::int32_t getHidHandle() const;
    std::int32_t getScannerHandle() const;

    void setPrtHandle(std::int32_t value);
    void setHidHandle(std::int32_t value);
    void setScannerHandle(std::int32_t value);
    /// Whether an interface of that kind was found.
    void setPrt(bool value);
    void setScanner(bool value);
    void setHid(bool value);
    /// "LOCAL_TRANSPORT" or "NETWORK_TRANSPORT"; empty when it is not known.
    void setNetwork(const std::string& value);
    void setPort(const std::string& value);
    void setPcsClientDllName(const std::string& value);
    void setPrintHeadClass(std::int32_t printHeadClass);

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
    Fields& fields() { return fields_; }
    const Fields& fields() const { return fields_; }

  private:
    Fields fields_;
    NullPrinterCache nullCache_;
};

}  // namespace jsw
