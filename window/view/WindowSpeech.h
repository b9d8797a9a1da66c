/**
 * @file WindowSpeech.h
 * What screen readers are told of the window.
 */
#pragma once

#include "window/ui/Accessible.h"
#include "window/view/WindowLayout.h"

#include <windows.h>

#include <map>
#include <memory>

namespace jsw::view {

/** Speaks for the controls that the window draws itself. Belongs to the window's thread. */
class WindowSpeech {
  public:
    ~WindowSpeech();

    /** Takes over what the controls of this window are asked. */
    void attach(HWND window);
    /** Tells what is shown from now on, and screen readers what of it has changed. */
    void update(const WindowContent& content, const WindowLayout& layout, const Page& page,
                const Strings& strings);

  private:
    static LRESULT CALLBACK answer(HWND control, UINT message, WPARAM wParam, LPARAM lParam,
                                   UINT_PTR id, DWORD_PTR speech);
    void say(int id, ui::AccessibleItem item, std::vector<ui::AccessibleItem> parts);

    ui::AccessibilityServer server_;
    std::map<int, std::shared_ptr<ui::AccessibleModel>> models_;
};

}  // namespace jsw::view
