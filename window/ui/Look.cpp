#include "window/ui/Look.h"

#include "window/ui/SystemFunction.h"

#include <windows.h>

#include <uxtheme.h>

namespace jsw::window {
namespace {

constexpr int kManifest = 2;  // ISOLATIONAWARE_MANIFEST_RESOURCE_ID: the usual one of a library

Colour systemColour(int index) {
    const COLORREF colour = GetSysColor(index);
    return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

bool highContrastIsOn() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof(contrast);
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool darkIsWanted() {
    DWORD light = 1;
    DWORD size = sizeof(light);
    RegGetValueW(HKEY_CURRENT_USER,
                 L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
                 L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size);
    return light == 0;
}

}  // namespace

VisualStyles::VisualStyles(HMODULE module) {
    wchar_t path[MAX_PATH] = {};
    ACTCTXW request{};
    request.cbSize = sizeof(request);
    request.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    request.hModule = module;
    request.lpSource = path;
    request.lpResourceName = MAKEINTRESOURCEW(kManifest);
    GetModuleFileNameW(module, path, MAX_PATH);
    context_ = CreateActCtxW(&request);
    if (context_ != INVALID_HANDLE_VALUE) ActivateActCtx(context_, &cookie_);
}

VisualStyles::~VisualStyles() {
    if (context_ == INVALID_HANDLE_VALUE) return;
    if (cookie_) DeactivateActCtx(0, cookie_);
    ReleaseActCtx(context_);
}

bool hasVisualStyles() {
    return IsThemeActive() && IsAppThemed();
}

Palette currentPalette() {
    if (highContrastIsOn()) {
        return highContrastPalette({systemColour(COLOR_WINDOW), systemColour(COLOR_WINDOWTEXT),
                                    systemColour(COLOR_HIGHLIGHT), systemColour(COLOR_BTNFACE),
                                    systemColour(COLOR_BTNTEXT), systemColour(COLOR_GRAYTEXT),
                                    systemColour(COLOR_HOTLIGHT)});
    }
    return darkIsWanted() && hasVisualStyles() ? darkPalette() : lightPalette();
}

void matchTitleBar(HWND window, const Palette& palette) {
    constexpr DWORD kUseDarkTitleBar = 20;  // DWMWA_USE_IMMERSIVE_DARK_MODE
    const HMODULE manager = LoadLibraryA("dwmapi.dll");
    if (!manager) return;
    const BOOL dark = palette.appearance == Appearance::dark;
    if (auto* const set = systemFunction<HRESULT WINAPI(HWND, DWORD, const void*, DWORD)>(
            manager, "DwmSetWindowAttribute")) {
        set(window, kUseDarkTitleBar, &dark, sizeof(dark));
    }
    FreeLibrary(manager);
}

void matchScrollBar(HWND scrollBar, const Palette& palette) {
    const bool dark = palette.appearance == Appearance::dark;
    SetWindowTheme(scrollBar, dark ? L"DarkMode_Explorer" : nullptr, nullptr);
}

bool animationsWanted() {
    BOOL wanted = TRUE;
    SystemParametersInfoW(SPI_GETCLIENTAREAANIMATION, 0, &wanted, 0);
    return wanted != FALSE;
}

}  // namespace jsw::window
