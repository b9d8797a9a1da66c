/**
 * @file WindowClass.h
 * The window class, registered while windows of it may exist.
 */
#pragma once

#include <windows.h>

namespace jsw::window {

/**
 * Registers the class JSW_SAMPLE_VIEW_CLASS during its lifetime. Windows of two jobs may overlap
 * for a moment, and the class must be unregistered before the module is unloaded.
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

}  // namespace jsw::window
