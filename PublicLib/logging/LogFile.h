#pragma once

#include "PublicLib/locks/InterProcessLock.h"
#include "PublicLib/locks/Security.h"
#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <string>
#include <string_view>

namespace jsw {

/// Name of the system mutex under which every process writes to a log file.
std::string logLockName(const std::string& path);

/// A text file to which several processes append. It is opened for each line, and each line is
/// written under a named mutex, so lines of different processes never mix.
class LogFile {
  public:
    /// @param path  without a backslash: a file in the root of the Windows drive
    /// Throws Win32Exception if the mutex cannot be created.
    explicit LogFile(const std::string& path);

    /// Appends the line unchanged; calls onMissing() if the file did not exist. A line that cannot
    /// be written completely is dropped. Throws Exception if the lock cannot be taken.
    template <class OnMissing>
    void append(std::string_view line, const OnMissing& onMissing) {
        const InterProcessLock::Hold hold(lock_);
        Security everyone;
        if (!open(kReadWrite, OPEN_EXISTING, everyone.attributes())) onMissing();
        write(open(kReadWrite, OPEN_ALWAYS, everyone.attributes()), line);
    }

    void remove();
    bool isReadable() const;

  private:
    static constexpr DWORD kReadWrite = GENERIC_READ | GENERIC_WRITE;

    KernelHandle open(DWORD access, DWORD disposition, SECURITY_ATTRIBUTES* security) const;
    static void write(const KernelHandle& file, std::string_view line);

    std::string path_;
    InterProcessLock lock_;
};

}  // namespace jsw
