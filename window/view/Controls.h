/**
 * @file Controls.h
 * Creates the window's controls and applies layouts to them.
 */
#pragma once

#include "window/view/WindowLayout.h"

#include <windows.h>

#include <span>
#include <string>

namespace jsw::window {

/** Creates the window's controls, hidden, in the order of the Tab key. */
void createControls(HWND window, HINSTANCE instance);

/** Sets the font of every control whose text the system draws. */
void setControlFont(HWND window, HFONT font);

/** Moves, labels, shows and hides the controls as the layout says. */
void applyLayout(HWND window, const WindowLayout& layout);

/** Ids of the controls that this window draws, or whose accessibility it provides. */
[[nodiscard]] std::span<const int> ownControls();

/** Whether this is a link of the page. */
[[nodiscard]] bool isLink(int id);

/** Whether this control is on the page. */
[[nodiscard]] bool isOnPage(int id);

/** Whether this control is in the last row. */
[[nodiscard]] bool isInFooter(int id);

/** Sets the text of the control (0: the window) only if it differs, to avoid flicker.
 */
void setControlText(HWND window, int id, const std::string& text);

/** Enables or disables the control; a disabled control loses the focus. */
void enableControl(HWND window, int id, bool enabled);

}  // namespace jsw::window
