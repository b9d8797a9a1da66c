/**
 * @file Layout.h
 * Which controls the window has and where they are.
 */
#pragma once

#include "samples/view/BillboardContent.h"
#include "samples/view/Canvas.h"

#include <windows.h>

namespace sampleview {

/** Size of the window without its frame, in pixels at 96 dots per inch. */
inline constexpr SIZE kClientSize{640, 518};

/** Height of the light part at the top, in the same unit. */
inline constexpr int kHeaderHeight = 66;

/**
 * Creates the window's controls. The page's buttons are among them, hidden.
 * @param unit dots per inch of the screen
 */
void createControls(HWND window, HINSTANCE instance, const Fonts& fonts, int unit);

/** Labels, places and shows the buttons of the page that the window shows from now on. */
void arrangePageButtons(HWND window, const Page& page, HFONT font, int unit);

/** Gives the control this text, without flicker when it has it already. */
void setControlText(HWND window, int id, const std::string& text);

/** Enables or disables the control; the keyboard moves on from one that is disabled. */
void enableControl(HWND window, int id, bool enabled);

}  // namespace sampleview
