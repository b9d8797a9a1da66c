/**
 * @file Dpi.h
 * The scale of a window's screen. The functions of newer systems are looked up by name; older
 * systems have one scale for all screens.
 */
#pragma once

#include <windows.h>

namespace jsw::window {

/** Sent by newer systems when a window moves to a screen with another scale. */
inline constexpr UINT kMessageDpiChanged = 0x02E0;

/** During its lifetime, windows that this thread creates are sharp on every screen. */
class SharpWindows {
  public:
    SharpWindows();
    ~SharpWindows();
    SharpWindows(const SharpWindows&) = delete;
    SharpWindows& operator=(const SharpWindows&) = delete;

  private:
    HANDLE previous_ = nullptr;
};

/** Dots per inch of the window's screen; without a window, of the main screen. */
[[nodiscard]] int dotsPerInch(HWND window);

/** Size of a window with content of this size. */
[[nodiscard]] SIZE frameSize(SIZE content, DWORD style, DWORD extendedStyle, int dotsPerInch);

}  // namespace jsw::window
