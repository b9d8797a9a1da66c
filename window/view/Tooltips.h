/**
 * @file Tooltips.h
 * Shows texts that had to be cut in full, when the mouse rests on them.
 */
#pragma once

#include "window/view/WindowLayout.h"

#include <windows.h>

namespace jsw::view {

/** The tooltips of one window; go with the window. */
class Tooltips {
  public:
    void create(HWND window, HINSTANCE instance);
    /** Replaces the tips by those that this layout needs. */
    void update(const WindowLayout& layout);

  private:
    void add(const Box& box, HWND control, const std::string& text);

    HWND window_ = nullptr;
    HWND tips_ = nullptr;
    UINT_PTR count_ = 0;
};

}  // namespace jsw::view
