#include "PublicLib/os/OsVersion.h"

#include "PublicLib/errors/ErrorPlaces.h"
#include "PublicLib/win/EntryPoint.h"
#include "PublicLib/win/SystemFolders.h"

namespace jsw {

OsClass classifyOs(DWORD platformId, DWORD major, DWORD minor) {
    if (platformId == VER_PLATFORM_WIN32_WINDOWS && major == 4 && minor == 0) {
        return OsClass::windows95;
    }
    if (platformId == VER_PLATFORM_WIN32_NT && major == 4 && minor == 0) return OsClass::nt4;
    if (major == 4 && minor == 10) return OsClass::windows98;
    if (major == 4 && minor == 90) return OsClass::windowsMe;
    if (major == 5 && minor == 0) return OsClass::windows2000;
    if (major == 5 && minor == 1) return OsClass::xp;
    if (major == 5 && minor == 2) return OsClass::server2003;
    if (major == 6 && minor == 0) return OsClass::vista;
    if (major == 6 && minor == 1) return OsClass::windows7;
    return OsClass::other;
}

const OsVersion& OsVersion::instance() {
    static const OsVersion version;
    return version;
}

OsVersion::OsVersion() {
    auto* record = reinterpret_cast<OSVERSIONINFOA*>(&version_);
    record->dwOSVersionInfoSize = sizeof(OSVERSIONINFOA);
    if (GetVersionExA(record) == FALSE) {
        raiseLastError("OsVersion::OsVersion(): GetVersionEx failed", place::kOsVersion);
    }
    if (!isNtFamily() || majorVersion() < 5) return;
    record->dwOSVersionInfoSize = sizeof(OSVERSIONINFOEXA);
    if (GetVersionExA(record) == FALSE) {
        raiseLastError("OsVersion::OsVersion(): GetVersionEx failed with OSVERSIONINFOEX",
                       place::kExtendedOsVersion);
    }
}

bool OsVersion::isXpOrLater() const {
    if (!isNtFamily()) return false;
    return (majorVersion() == 5 && version_.dwMinorVersion != 0) || majorVersion() >= 6;
}

OsClass OsVersion::classification() const {
    return classifyOs(version_.dwPlatformId, version_.dwMajorVersion, version_.dwMinorVersion);
}

bool OsVersion::isRunningUnderWow64() {
    using IsWow64ProcessFn = BOOL WINAPI(HANDLE, BOOL*);
    // Older systems lack the function; kernel32 is never unloaded, so its handle needs no owner.
    auto* isWow64Process =
        findEntryPoint<IsWow64ProcessFn>(GetModuleHandleA("kernel32"), "IsWow64Process");
    BOOL answer = FALSE;
    return isWow64Process != nullptr && isWow64Process(GetCurrentProcess(), &answer) != FALSE &&
           answer != FALSE;
}

namespace {

/// An unknown directory stays empty: its folder would name the root of the current drive.
std::string driverFolder(const char* versionFolder) {
    const std::string directory = printerDriverDirectory();
    return directory.empty() ? directory : directory + versionFolder;
}

}  // namespace

std::string OsVersion::versionedPrinterDriverFolder() const {
    const OsClass version = classification();
    if (version >= OsClass::windows2000) return driverFolder("\\3");
    return driverFolder(version == OsClass::nt4 ? "\\2" : "");
}

std::string OsVersion::printerDriverFolderByMajorVersion() const {
    if (majorVersion() >= 5) return driverFolder("\\3");
    return driverFolder(majorVersion() == 4 ? "\\2" : "");
}

}  // namespace jsw
