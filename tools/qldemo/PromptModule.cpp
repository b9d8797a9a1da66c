#include "tools/qldemo/PromptModule.h"

#include <windows.h>

#include <winspool.h>

#include <stdexcept>

namespace jsw::qldemo {

void installPromptModule(const std::string& source) {
    char folder[MAX_PATH] = {};
    DWORD needed = 0;
    if (GetPrinterDriverDirectoryA(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(&folder[0]),
                                   MAX_PATH, &needed) == FALSE) {
        throw std::runtime_error("there is no folder for printer drivers, error " +
                                 std::to_string(GetLastError()));
    }
    // Drivers of Windows 2000 and later are in the subfolder of their version.
    const std::string driverFolder = std::string(folder) + "\\3";
    CreateDirectoryA(driverFolder.c_str(), nullptr);
    const std::string target = driverFolder + "\\qldejswo.dll";
    if (CopyFileA(source.c_str(), target.c_str(), FALSE) == FALSE) {
        throw std::runtime_error("cannot copy " + source + " to " + target + ", error " +
                                 std::to_string(GetLastError()));
    }
}

}  // namespace jsw::qldemo
