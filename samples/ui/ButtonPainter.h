/**
 * @file ButtonPainter.h
 * Draws push buttons, check boxes and links where the system's own drawing does not know the
 * window's colours. The controls themselves stay the system's: keyboard, focus, screen readers.
 */
#pragma once

#include "samples/ui/Canvas.h"
#include "samples/ui/Colours.h"
#include "samples/ui/Geometry.h"

#include <windows.h>

#include <commctrl.h>

namespace sampleui {

/** What the controls of a window look like. */
struct ButtonLook {
    const Palette& palette;
    const Fonts& fonts;
    Scale scale;
    Colour ground; /**< behind the control */
    bool isDefault = false;
};

/**
 * Answers a button's NM_CUSTOMDRAW: draws a push button or check box in dark colours, and leaves
 * light and high contrast to the system.
 */
[[nodiscard]] LRESULT customDrawButton(const NMCUSTOMDRAW& notice, const ButtonLook& look);

/** Draws an owner-drawn button as a link in a text. */
void drawLink(const DRAWITEMSTRUCT& item, const ButtonLook& look);

}  // namespace sampleui
