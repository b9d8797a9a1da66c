#pragma once

#include <windows.h>

#include <string>

namespace jsw {

/// The versions of Windows that the library distinguishes.
enum class OsClass {
    other = 0,
    windows95 = 1,
    windows98 = 2,
    windowsMe = 3,
    nt4 = 4,
    windows2000 = 5,
    xp = 6,
    server2003 = 7,  // 5.2, also the 64-bit edition of XP
    vista = 8,
    windows7 = 9,
};

/// Classifies a version; newer systems than Windows 7 are "other".
OsClass classifyOs(DWORD platformId, DWORD major, DWORD minor);

/// The running version of Windows. Read once per process, then immutable, so thread-safe.
class OsVersion {
  public:
    /// The version of this system. The first call throws Win32Exception if Windows does not return
    /// it.
    static const OsVersion& instance();

    /// For another system's version.
    explicit OsVersion(const OSVERSIONINFOEXA& version) : version_(version) {}

    DWORD majorVersion() const { return version_.dwMajorVersion; }
    bool isNtFamily() const { return version_.dwPlatformId == VER_PLATFORM_WIN32_NT; }
    bool isXpOrLater() const;
    bool isVersion6OrLater() const { return isNtFamily() && majorVersion() >= 6; }
    OsClass classification() const;

    /// Whether this is a 32-bit process on a 64-bit system.
    static bool isRunningUnderWow64();

    /// The printer-driver directory followed by the folder of this system's class: "\3" for
    /// Windows 2000 to 7, "\2" for NT 4, nothing for the others.
    std::string versionedPrinterDriverFolder() const;

    /// The same, by the major version alone: "\3" for 5 and later, "\2" for 4.
    std::string printerDriverFolderByMajorVersion() const;

  private:
    OsVersion();

    OSVERSIONINFOEXA version_{};
};

}  // namespace jsw
