/**
 * @file Dpi.h
 * The scale of the screen that a window is on. What newer systems know of it is looked up by name;
 * older ones have one scale for all screens.
 */
#pragma once

#include <windows.h>

namespace jsw::ui {

/** Sent by newer systems when a window comes to a screen of another scale. */
inline constexpr UINT kMessageDpiChanged = 0x02E0;

/** Makes windows that this thread creates sharp on every screen, for the length of a block. */
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

}  // namespace jsw::ui
