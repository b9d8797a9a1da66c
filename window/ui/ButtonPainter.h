/**
 * @file ButtonPainter.h
 * Draws push buttons, check boxes and links in the window's colours, which the system does not
 * support. The controls remain the system's: keyboard, focus, accessibility.
 */
#pragma once

#include "window/ui/Canvas.h"
#include "window/ui/Colours.h"
#include "window/ui/Geometry.h"
#include "window/ui/TextPainter.h"

#include <windows.h>

#include <commctrl.h>

namespace jsw::window {

/** The look of a window's controls. */
struct ButtonLook : Look {
    Colour ground; /**< behind the control */
    bool isDefault = false;
    bool showsFocus = true; /**< if the system shows it, too */
    bool showsKeys = true;  /**< likewise for the underlines of access keys */
};

/**
 * Answers a button's NM_CUSTOMDRAW: draws a push button or check box in light or dark colours, and
 * leaves high contrast to the system. Without visual styles buttons send no such message and look
 * classic.
 */
[[nodiscard]] LRESULT customDrawButton(const NMCUSTOMDRAW& notice, const ButtonLook& look);

/**
 * Draws an owner-drawn button as a link in a text.
 * @param whole the link's box in the control, which may show only a part of it
 */
void drawLink(const DRAWITEMSTRUCT& item, const Box& whole, const ButtonLook& look);

}  // namespace jsw::window
