#pragma once

#include "tests/job/Script.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <shellapi.h>

#include <functional>
#include <string>

namespace jsw::test {

/// Stands in for the shell of jsw.dll while it lives: notes what it is asked to start.
class RecordedShell {
  public:
    RecordedShell();
    RecordedShell(const RecordedShell&) = delete;
    RecordedShell& operator=(const RecordedShell&) = delete;

    CallRecord calls;                ///< "open(FILE)" and "elevate(FILE)"
    CallRecord details;              ///< all that was handed over, with "|" between
    DWORD error = 0;                 ///< of calls that are to fail
    std::function<void()> onCall{};  ///< before the answer

  private:
    using Open = decltype(ShellExecuteExA);
    using Elevate = decltype(ShellExecuteA);

    INT_PTR answer();

    const ImportTable imports_{GetModuleHandleA("jsw.dll")};
    ReplacedImport<Open, std::function<BOOL(SHELLEXECUTEINFOA*)>> open_;
    ReplacedImport<Elevate, std::function<HINSTANCE(HWND, const char*, const char*, const char*,
                                                    const char*, INT)>>
        elevate_;
};

}  // namespace jsw::test
