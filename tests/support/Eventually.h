#pragma once

#include <windows.h>

namespace jsw::test {

/// Polls until done() is true; false after ten seconds.
template <class Done>
bool eventually(const Done& done) {
    const ULONGLONG start = GetTickCount64();
    while (!done()) {
        if (GetTickCount64() - start >= 10000) return false;
        Sleep(1);
    }
    return true;
}

}  // namespace jsw::test
