/**
 * @file Look.h
 * The system's appearance: visual styles, dark mode, high contrast.
 */
#pragma once

#include "window/ui/Colours.h"

#include <windows.h>

namespace jsw::window {

/**
 * During its lifetime, controls that this thread creates have the system's visual style, if it has
 * one: common controls 6, which the module's manifest requests. On other systems they look classic.
 */
class VisualStyles {
  public:
    /** @param module contains the manifest as resource kManifest */
    explicit VisualStyles(HMODULE module);
    ~VisualStyles();
    VisualStyles(const VisualStyles&) = delete;
    VisualStyles& operator=(const VisualStyles&) = delete;

  private:
    HANDLE context_;
    ULONG_PTR cookie_ = 0;
};

/** Whether the system now draws controls in a visual style. */
[[nodiscard]] bool hasVisualStyles();

/** The user's present colours. Dark only with visual styles: classic controls have no dark mode. */
[[nodiscard]] Palette currentPalette();

/** Makes the title bar dark or light like the palette, if the system can. */
void matchTitleBar(HWND window, const Palette& palette);

/** The same for a scroll bar. */
void matchScrollBar(HWND scrollBar, const Palette& palette);

/** Whether the user wants animations. */
[[nodiscard]] bool animationsWanted();

}  // namespace jsw::window
