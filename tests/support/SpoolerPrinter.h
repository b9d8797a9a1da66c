#pragma once

#include "PublicLib/win/Handles.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace jsw::test {

/// A printer of the real spooler, as a driver package installs it, removed by the destructor. With
/// a private registry the spooler keeps it there.
class SpoolerPrinter {
  public:
    explicit SpoolerPrinter(std::string name) : name_(std::move(name)) {
        addDriver();
        std::string driver = kDriver;
        std::string port = "LPT1:";
        std::string processor = "winprint";
        std::string dataType = "RAW";
        PRINTER_INFO_2A info{};
        info.pPrinterName = name_.data();
        info.pPortName = port.data();
        info.pDriverName = driver.data();
        info.pPrintProcessor = processor.data();
        info.pDatatype = dataType.data();
        handle_.reset(AddPrinterA(nullptr, 2, reinterpret_cast<BYTE*>(&info)));
        EXPECT_TRUE(handle_) << GetLastError();
    }
    ~SpoolerPrinter() {
        DeletePrinter(handle_.get());
        handle_.reset();
        std::string driver = kDriver;
        DeletePrinterDriverA(nullptr, nullptr, driver.data());
    }
    SpoolerPrinter(const SpoolerPrinter&) = delete;
    SpoolerPrinter& operator=(const SpoolerPrinter&) = delete;

    /// Sets the name with which the printer was installed.
    void setOriginalName(const std::string& originalName) {
        setOriginalName(REG_SZ, originalName + '\0');
    }
    /// Sets it to any bytes of any registry type.
    void setOriginalName(DWORD type, std::string data) {
        std::string name = "OriginalFriendlyName";
        EXPECT_EQ(
            SetPrinterDataA(handle_.get(), name.data(), type, reinterpret_cast<BYTE*>(data.data()),
                            static_cast<DWORD>(data.size())),
            static_cast<DWORD>(ERROR_SUCCESS));
    }

  private:
    static constexpr char kDriver[] = "JSW test driver";

    static void addDriver() {
        std::string name = kDriver;
        std::string file = "C:\\windows\\system32\\wineps.drv";  // nothing is printed with it
        DRIVER_INFO_3A info{};
        info.cVersion = 3;
        info.pName = name.data();
        info.pDriverPath = info.pConfigFile = info.pDataFile = file.data();
        EXPECT_TRUE(AddPrinterDriverExA(nullptr, 3, reinterpret_cast<BYTE*>(&info),
                                        APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY) ||
                    GetLastError() == ERROR_PRINTER_DRIVER_ALREADY_INSTALLED)
            << GetLastError();
    }

    std::string name_;
    PrinterHandle handle_;
};

}  // namespace jsw::test
