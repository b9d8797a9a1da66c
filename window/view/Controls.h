/**
 * @file Controls.h
 * The window's controls: what they are, and putting a layout into effect.
 */
#pragma once

#include "window/view/WindowLayout.h"

#include <windows.h>

#include <span>
#include <string>

namespace jsw::view {

/** Creates the window's controls, hidden and without a place, in the order of the Tab key. */
void createControls(HWND window, HINSTANCE instance);

/** Gives every control with a text of the system's drawing this font. */
void setControlFont(HWND window, HFONT font);

/** Moves, labels, shows and hides the controls as the layout says. */
void applyLayout(HWND window, const WindowLayout& layout);

/** Ids of the controls that this window draws, or speaks for, itself. */
[[nodiscard]] std::span<const int> ownControls();

/** Whether this is a link of the page. */
[[nodiscard]] bool isLink(int id);

/** Whether this lies on the page. */
[[nodiscard]] bool isOnPage(int id);

/** Whether this lies in the last row. */
[[nodiscard]] bool isInFooter(int id);

/** Gives the control (the window itself for 0) this text, without flicker when it has it already.
 */
void setControlText(HWND window, int id, const std::string& text);

/** Enables or disables the control; the keyboard moves on from one that is disabled. */
void enableControl(HWND window, int id, bool enabled);

}  // namespace jsw::view
