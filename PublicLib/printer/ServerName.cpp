#include "PublicLib/printer/ServerName.h"

#include "PublicLib/text/Text.h"
#include "PublicLib/win/EntryPoint.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/LoadLibrary.h"

#include <windows.h>

#include <array>
#include <winnetwk.h>

namespace jsw {

namespace {

std::string computerName() {
    std::array<char, MAX_COMPUTERNAME_LENGTH + 1> name{};
    auto size = static_cast<DWORD>(name.size());
    return GetComputerNameA(name.data(), &size) ? std::string(name.data(), size) : std::string();
}

bool isThisComputer(const std::string& serverName) {
    const std::string name = computerName();
    if (name.empty()) return false;
    return equalsIgnoringCase(serverName, name) || equalsIgnoringCase(serverName, "\\\\" + name);
}

std::uint32_t lookUpPrintResource(std::string remoteName) {
    const ModuleHandle library = loadSystemLibrary("mpr.dll");
    if (!library) return GetLastError();
    auto* const look = findEntryPoint<decltype(WNetGetResourceInformationA)>(
        library.get(), "WNetGetResourceInformationA");
    if (look == nullptr) return GetLastError();
    NETRESOURCEA resource{};
    resource.dwType = RESOURCETYPE_PRINT;
    resource.lpRemoteName = remoteName.data();
    std::array<char, 261> result{};
    auto size = static_cast<DWORD>(result.size());
    LPSTR path = nullptr;
    return look(&resource, result.data(), &size, &path);
}

}  // namespace

std::uint32_t findServer(const std::string& serverName) {
    if (serverName.empty() || isThisComputer(serverName)) return ERROR_SUCCESS;
    return lookUpPrintResource(serverName.front() == '\\' ? serverName : "\\\\" + serverName);
}

}  // namespace jsw
