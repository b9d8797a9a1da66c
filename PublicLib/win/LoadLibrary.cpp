#include "PublicLib/win/LoadLibrary.h"

#include "PublicLib/win/EntryPoint.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"

namespace jsw {

namespace {

using SetErrorMode = BOOL WINAPI(DWORD mode, DWORD* before);

/// Keeps the system from showing its errors on this thread. Older systems have this only for the
/// whole process, where it is the host's decision.
class QuietErrors {
  public:
    QuietErrors()
        : set_(findEntryPoint<SetErrorMode>(GetModuleHandleA("kernel32.dll"),
                                            "SetThreadErrorMode")) {
        if (set_ != nullptr) set_(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &before_);
    }
    ~QuietErrors() {
        const DWORD lastError = GetLastError();
        if (set_ != nullptr) set_(before_, nullptr);
        SetLastError(lastError);
    }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

  private:
    SetErrorMode* set_;
    DWORD before_ = 0;
};

}  // namespace

ModuleHandle loadLibraryQuietly(const std::string& path) {
    const QuietErrors quiet;
    return ModuleHandle(LoadLibraryA(path.c_str()));
}

ModuleHandle loadSystemLibrary(const std::string& fileName, std::string* path) {
    const std::string folder = systemFolder();
    const std::string fullPath = joinPath(folder, fileName);
    if (path != nullptr) *path = fullPath;
    if (!folder.empty()) return loadLibraryQuietly(fullPath);
    SetLastError(ERROR_PATH_NOT_FOUND);  // the path would name the root of a drive
    return {};
}

}  // namespace jsw
