#include "PublicLib/win/Handles.h"
#include "jsw/settings/OfnSettings.h"
#include "jsw/settings/RegistryKey.h"
#include "tests/support/HostTest.h"

#include <windows.h>

#include <winspool.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace jsw {

namespace {

constexpr char kDriver[] = "JSW test driver";
constexpr char kData[] = "OriginalFriendlyName";

/// A printer of the real spooler, as installed by a driver package; it goes with the object.
class SpooledPrinter {
  public:
    explicit SpooledPrinter(std::string name) : name_(std::move(name)) {
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
    ~SpooledPrinter() {
        DeletePrinter(handle_.get());
        handle_.reset();
        std::string driver = kDriver;
        DeletePrinterDriverA(nullptr, nullptr, driver.data());
    }
    SpooledPrinter(const SpooledPrinter&) = delete;
    SpooledPrinter& operator=(const SpooledPrinter&) = delete;

    void setData(DWORD type, std::string data) {
        std::string name = kData;
        EXPECT_EQ(
            SetPrinterDataA(handle_.get(), name.data(), type, reinterpret_cast<BYTE*>(data.data()),
                            static_cast<DWORD>(data.size())),
            static_cast<DWORD>(ERROR_SUCCESS));
    }

  private:
    static void addDriver() {
        std::string name = kDriver;
        std::string file = "C:\\windows\\system32\\wineps.drv";
        DRIVER_INFO_3A info{};
        info.cVersion = 3;
        info.pName = name.data();
        info.pDriverPath = file.data();
        info.pConfigFile = file.data();
        info.pDataFile = file.data();
        EXPECT_TRUE(AddPrinterDriverExA(nullptr, 3, reinterpret_cast<BYTE*>(&info),
                                        APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY) ||
                    GetLastError() == ERROR_PRINTER_DRIVER_ALREADY_INSTALLED)
            << GetLastError();
    }

    std::string name_;
    PrinterHandle handle_;
};

}  // namespace

constexpr char kRoot[] = "Software\\QuillonInkjet\\IjPrtSettings\\";

class PrinterStoreTest : public test::HostTest {};

TEST_F(PrinterStoreTest, StoreIsNamedAfterTheNameAtInstallation) {
    SpooledPrinter printer("JSW renamed");
    printer.setData(REG_SZ, std::string("JSW original\0", 13));
    RegistryKey(std::string(kRoot) + "JSW original\\GUI\\JSW", true)
        .setValue("Job Progress Minimized", std::uint32_t{5});

    EXPECT_EQ(OfnSettings::printerStorePath("JSW renamed"), std::string(kRoot) + "JSW original");
    std::uint32_t value = 0;
    EXPECT_TRUE(OfnSettings("JSW renamed").read(setting::kJobProgressMinimized, value));
    EXPECT_EQ(value, 5u);

    printer.setData(REG_SZ, std::string("changed\0", 8));
    EXPECT_EQ(originalFriendlyName("JSW renamed"), "JSW original") << "the last name is remembered";
    EXPECT_EQ(originalFriendlyName(""), "");
    EXPECT_EQ(originalFriendlyName("JSW renamed"), "changed");
}

TEST_F(PrinterStoreTest, PrintersWithoutAnOriginalNameHaveANamelessStore) {
    EXPECT_EQ(OfnSettings::printerStorePath(""), kRoot);
    EXPECT_EQ(OfnSettings::printerStorePath("No such printer"), kRoot);
    SpooledPrinter printer("JSW plain");
    EXPECT_EQ(OfnSettings::printerStorePath("JSW plain"), kRoot);
    originalFriendlyName("");
    printer.setData(REG_DWORD, std::string(4, 'x'));
    EXPECT_EQ(OfnSettings::printerStorePath("JSW plain"), kRoot);
}

TEST_F(PrinterStoreTest, ReadingNeverMakesAPrinterStore) {
    const OfnSettings settings("No such printer");
    std::uint32_t value = 7;
    std::string text = "old";
    EXPECT_FALSE(settings.read(setting::kShowProcessWindow, value));
    EXPECT_FALSE(settings.getDwordValueOrDefault("GUI\\JSW\\", "x", 1, value));
    EXPECT_FALSE(settings.read(setting::kRetailerId, text));
    EXPECT_EQ(value, 7u);
    EXPECT_EQ(text, "old");
    EXPECT_FALSE(settings.rootExists());
}

}  // namespace jsw
