/**
 * @file Look.h
 * How the system wants windows to look: visual styles, dark mode, high contrast.
 */
#pragma once

#include "window/ui/Colours.h"

#include <windows.h>

namespace jsw::ui {

/**
 * While it lives, controls that this thread creates have the system's visual style, if it has one:
 * common controls 6, which the module's manifest asks for. Elsewhere they look classic.
 */
class VisualStyles {
  public:
    /** @param module carries the manifest as resource kManifest */
    explicit VisualStyles(HMODULE module);
    ~VisualStyles();
    VisualStyles(const VisualStyles&) = delete;
    VisualStyles& operator=(const VisualStyles&) = delete;

  private:
    HANDLE context_;
    ULONG_PTR cookie_ = 0;
};

/** Whether the system draws controls in a visual style now. */
[[nodiscard]] bool hasVisualStyles();

/** The user's colours now. Dark only with visual styles: classic controls know no dark. */
[[nodiscard]] Palette currentPalette();

/** Makes the title bar dark or light like the palette, where the system can. */
void matchTitleBar(HWND window, const Palette& palette);

/** The same for a scroll bar. */
void matchScrollBar(HWND scrollBar, const Palette& palette);

/** Whether the user wants things on the screen to move. */
[[nodiscard]] bool animationsWanted();

}  // namespace jsw::ui
