#pragma once

#include "tests/job/Script.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <shellapi.h>

#include <functional>

namespace jsw::test {

/// Replaces jsw.dll's shell functions during its lifetime and records what they would start.
class RecordedShell {
  public:
    RecordedShell();
    RecordedShell(const RecordedShell&) = delete;
    RecordedShell& operator=(const RecordedShell&) = delete;

    CallRecord calls;                ///< "open(FILE)" and "elevate(FILE)"
    CallRecord details;              ///< all arguments, separated by "|"
    DWORD error = 0;                 ///< of calls that shall fail
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
