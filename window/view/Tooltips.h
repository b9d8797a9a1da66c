/**
 * @file Tooltips.h
 * Shows the full version of cut texts under the mouse.
 */
#pragma once

#include "window/view/WindowLayout.h"

#include <windows.h>

namespace jsw::window {

/** The tooltips of one window; destroyed with it. */
class Tooltips {
  public:
    void create(HWND window, HINSTANCE instance);
    /** Replaces the tips by those of this layout. */
    void update(const WindowLayout& layout);

  private:
    void add(const Box& box, HWND control, const std::string& text);

    HWND window_ = nullptr;
    HWND tips_ = nullptr;
    UINT_PTR count_ = 0;
};

}  // namespace jsw::window
