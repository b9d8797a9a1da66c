/**
 * @file Accessible.h
 * What screen readers are told of controls that are drawn by ourselves.
 */
#pragma once

#include "window/ui/Geometry.h"

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace jsw::ui {

/** A control, or a part of one. Texts are UTF-8. */
struct AccessibleItem {
    std::string name;
    std::string value;       /**< empty: it has none */
    std::string description; /**< empty: it has none */
    long role = 0;           /**< ROLE_SYSTEM_... */
    long state = 0;          /**< STATE_SYSTEM_..., bits */
    Box box;                 /**< in the control's pixels; empty: the whole control */
    bool operator==(const AccessibleItem&) const = default;
};

/** A control with its parts; kept current by the window, on the window's thread. */
struct AccessibleModel {
    HWND control = nullptr; /**< null once it is gone */
    AccessibleItem self;
    std::vector<AccessibleItem> parts;
};

/** Serves the screen readers that ask for the controls of one thread's windows. */
class AccessibilityServer {
  public:
    AccessibilityServer() = default;
    ~AccessibilityServer();
    AccessibilityServer(const AccessibilityServer&) = delete;
    AccessibilityServer& operator=(const AccessibilityServer&) = delete;

    /**
     * Answers WM_GETOBJECT for the client area of a control, and hands the asker an object that
     * goes on telling what the model says. 0 for other objects, for the system to answer.
     */
    [[nodiscard]] LRESULT answer(const std::shared_ptr<AccessibleModel>& model, WPARAM wParam,
                                 LPARAM lParam);

  private:
    bool comBegun_ = false; /**< only when somebody asks; most windows are never asked */
};

}  // namespace jsw::ui
