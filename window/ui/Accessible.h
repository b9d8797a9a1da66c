/**
 * @file Accessible.h
 * Accessibility of controls that the window draws itself.
 */
#pragma once

#include "window/ui/Geometry.h"

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace jsw::window {

/** A control, or a part of one. Texts are UTF-8. */
struct AccessibleItem {
    std::string name;
    std::string value;       /**< empty: none */
    std::string description; /**< empty: none */
    long role = 0;           /**< ROLE_SYSTEM_... */
    long state = 0;          /**< STATE_SYSTEM_..., bits */
    Box box;                 /**< in the control's pixels; empty: the whole control */
    bool operator==(const AccessibleItem&) const = default;
};

/** A control with its parts; the window updates it on its thread. */
struct AccessibleModel {
    HWND control = nullptr; /**< null after its destruction */
    AccessibleItem self;
    std::vector<AccessibleItem> parts;
};

/** Serves screen readers for the controls of one thread's windows. */
class AccessibilityServer {
  public:
    AccessibilityServer() = default;
    ~AccessibilityServer();
    AccessibilityServer(const AccessibilityServer&) = delete;
    AccessibilityServer& operator=(const AccessibilityServer&) = delete;

    /**
     * Answers WM_GETOBJECT for a control's client area with an object that always shows the model's
     * present state. Returns 0 for other objects, which the system answers.
     */
    [[nodiscard]] LRESULT answer(const std::shared_ptr<AccessibleModel>& model, WPARAM wParam,
                                 LPARAM lParam);

  private:
    bool comBegun_ = false; /**< only on request; most windows get none */
};

}  // namespace jsw::window
