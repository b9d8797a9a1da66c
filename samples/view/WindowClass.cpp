#include "samples/view/WindowClass.h"

#include "samples/view/Canvas.h"
#include "samples/view/ControlIds.h"

#include <commctrl.h>

#include <mutex>

namespace sampleview {
namespace {

std::mutex usersMutex;
int users = 0;

}  // namespace

WindowClass::WindowClass(HINSTANCE instance, WNDPROC procedure) : instance_(instance) {
    const std::lock_guard lock(usersMutex);
    if (users++ > 0) return;
    const INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&controls);
    WNDCLASSEXA description{};
    description.cbSize = sizeof(description);
    description.lpfnWndProc = procedure;
    description.hInstance = instance;
    description.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    description.hIcon = LoadIconA(nullptr, reinterpret_cast<LPCSTR>(IDI_APPLICATION));
    // The system deletes the brush with the class.
    description.hbrBackground = CreateSolidBrush(colours::kBody);
    description.lpszClassName = JSW_SAMPLE_VIEW_CLASS;
    RegisterClassExA(&description);
}

WindowClass::~WindowClass() {
    const std::lock_guard lock(usersMutex);
    if (--users == 0) UnregisterClassA(JSW_SAMPLE_VIEW_CLASS, instance_);
}

}  // namespace sampleview
