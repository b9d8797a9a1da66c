/**
 * @file WindowSpeech.h
 * The window's accessibility.
 */
#pragma once

#include "window/ui/Accessible.h"
#include "window/view/WindowLayout.h"

#include <windows.h>

#include <map>
#include <memory>

namespace jsw::window {

/** Provides accessibility for the controls that the window draws. Used only on the window's thread.
 */
class WindowSpeech {
  public:
    ~WindowSpeech();

    /** Handles the accessibility requests to this window's controls. */
    void attach(HWND window);
    /** Updates the models and notifies screen readers of the changes. */
    void update(const WindowContent& content, const WindowLayout& layout, const Page& page,
                const WindowTexts& texts);

  private:
    static LRESULT CALLBACK answer(HWND control, UINT message, WPARAM wParam, LPARAM lParam,
                                   UINT_PTR id, DWORD_PTR speech);
    void say(int id, AccessibleItem item, std::vector<AccessibleItem> parts);

    AccessibilityServer server_;
    std::map<int, std::shared_ptr<AccessibleModel>> models_;
};

}  // namespace jsw::window
