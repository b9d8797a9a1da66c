#include "PublicLib/win/SystemFolders.h"

#include <windows.h>

#include <shlobj.h>
#include <winspool.h>

#include <array>

namespace jsw {

std::string moduleFileName(HMODULE module) {
    constexpr DWORD kLongestPath = 32768;  // of the file system, in characters
    for (DWORD size = MAX_PATH + 1; size <= 2 * kLongestPath; size *= 2) {
        std::string name(size, '\0');
        const DWORD length = GetModuleFileNameA(module, name.data(), size);
        if (length < size) {  // a full buffer may contain a truncated name
            name.resize(length);
            return name;
        }
    }
    return {};
}

std::string printerDriverDirectory() {
    constexpr DWORD kLevel = 1;
    std::array<BYTE, MAX_PATH> buffer{};
    DWORD needed = 0;
    if (GetPrinterDriverDirectoryA(nullptr, nullptr, kLevel, buffer.data(),
                                   static_cast<DWORD>(buffer.size()), &needed) == FALSE) {
        return {};
    }
    return reinterpret_cast<const char*>(buffer.data());
}

std::string specialFolder(int csidl) {
    std::array<char, MAX_PATH> buffer{};
    if (FAILED(SHGetFolderPathA(nullptr, csidl, nullptr, SHGFP_TYPE_CURRENT, buffer.data()))) {
        return {};
    }
    return buffer.data();
}

std::string programFilesFolder() {
    const std::string folder = specialFolder(CSIDL_PROGRAM_FILES);
    return folder.empty() ? "C:\\Program Files" : folder;
}

std::string systemFolder() {
    std::array<char, MAX_PATH> buffer{};
    const UINT length = GetSystemDirectoryA(buffer.data(), static_cast<UINT>(buffer.size()));
    if (length == 0 || length >= buffer.size()) return {};
    return {buffer.data(), length};
}

}  // namespace jsw
