#include "PublicLib/win/LoadLibrary.h"

#include "PublicLib/win/EntryPoint.h"

namespace jsw {

namespace {

using SetErrorMode = BOOL WINAPI(DWORD mode, DWORD* before);

/// Keeps the system from showing its errors on this thread. Older systems know no such thing for a
/// thread; to change the whole process is the host's business.
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

}  // namespace jsw
