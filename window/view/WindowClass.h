/**
 * @file WindowClass.h
 * The window class, registered while any window of it may exist.
 */
#pragma once

#include <windows.h>

namespace jsw::view {

/**
 * Keeps the class JSW_SAMPLE_VIEW_CLASS registered while it lives. Windows of two jobs may overlap
 * for a moment, and the class must be gone before the module is.
 */
class WindowClass {
  public:
    WindowClass(HINSTANCE instance, WNDPROC procedure);
    ~WindowClass();
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;

  private:
    HINSTANCE instance_;
};

}  // namespace jsw::view
