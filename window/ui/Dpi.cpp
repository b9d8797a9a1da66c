#include "window/ui/Dpi.h"

#include "window/ui/SystemFunction.h"

namespace jsw::window {
namespace {

/** DPI_AWARENESS_CONTEXT values: per monitor, with and without scaled title bars. */
const HANDLE kPerMonitor2 = reinterpret_cast<HANDLE>(static_cast<INT_PTR>(-4));
const HANDLE kPerMonitor = reinterpret_cast<HANDLE>(static_cast<INT_PTR>(-3));

template <typename Function>
Function* userFunction(const char* name) {
    return systemFunction<Function>(GetModuleHandleA("user32.dll"), name);
}

HANDLE setAwareness(HANDLE context) {
    auto* const set = userFunction<HANDLE WINAPI(HANDLE)>("SetThreadDpiAwarenessContext");
    return set ? set(context) : nullptr;
}

}  // namespace

SharpWindows::SharpWindows() : previous_(setAwareness(kPerMonitor2)) {
    if (!previous_) previous_ = setAwareness(kPerMonitor);
}

SharpWindows::~SharpWindows() {
    if (previous_) setAwareness(previous_);
}

int dotsPerInch(HWND window) {
    auto* const ask = userFunction<UINT WINAPI(HWND)>("GetDpiForWindow");
    const UINT known = ask && window ? ask(window) : 0;
    if (known > 0) return static_cast<int>(known);
    const HDC screen = GetDC(nullptr);
    const int dots = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dots;
}

SIZE frameSize(SIZE content, DWORD style, DWORD extendedStyle, int dotsPerInch) {
    RECT frame{0, 0, content.cx, content.cy};
    auto* const adjust =
        userFunction<BOOL WINAPI(RECT*, DWORD, BOOL, DWORD, UINT)>("AdjustWindowRectExForDpi");
    if (!adjust || !adjust(&frame, style, FALSE, extendedStyle, static_cast<UINT>(dotsPerInch))) {
        AdjustWindowRectEx(&frame, style, FALSE, extendedStyle);
    }
    return {frame.right - frame.left, frame.bottom - frame.top};
}

}  // namespace jsw::window
