#include "window/view/WindowClass.h"

#include "window/view/WindowIds.h"

#include <commctrl.h>

#include <mutex>

namespace jsw::window {
namespace {

std::mutex usersMutex;
int users = 0;

}  // namespace

WindowClass::WindowClass(HINSTANCE instance, WNDPROC procedure) : instance_(instance) {
    const std::lock_guard lock(usersMutex);
    if (users++ > 0) return;
    const INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_STANDARD_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    WNDCLASSEXW description{};
    description.cbSize = sizeof(description);
    description.lpfnWndProc = procedure;
    description.hInstance = instance;
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    description.hIcon = LoadIconA(nullptr, IDI_APPLICATION);
    description.lpszClassName = JSW_SAMPLE_VIEW_CLASS_W;
    RegisterClassExW(&description);
}

WindowClass::~WindowClass() {
    const std::lock_guard lock(usersMutex);
    if (--users == 0) UnregisterClassW(JSW_SAMPLE_VIEW_CLASS_W, instance_);
}

}  // namespace jsw::window
