#pragma once

#include <windows.h>

namespace jsw::test {

/// The window of this process with a class and a title (null: any title), or null. A test program
/// that runs at the same time may show such a window, too.
inline HWND ownWindow(const char* windowClass, const char* title = nullptr) {
    HWND window = nullptr;
    DWORD process = 0;
    do {
        window = FindWindowExA(nullptr, window, windowClass, title);
        GetWindowThreadProcessId(window, &process);
    } while (window != nullptr && process != GetCurrentProcessId());
    return window;
}

}  // namespace jsw::test
