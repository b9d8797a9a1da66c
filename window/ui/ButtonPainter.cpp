#include "window/ui/ButtonPainter.h"

#include "common/Encoding.h"

#include <array>

namespace jsw::window {
namespace {

constexpr int kRadius = 4;
constexpr int kCheckSize = 15;

/** A control's own state. */
struct ButtonState {
    ButtonState(HWND button, const ButtonLook& look)
        : text(textOf(button)),
          isCheckBox((GetWindowLongPtrW(button, GWL_STYLE) & BS_TYPEMASK) == BS_CHECKBOX),
          isChecked(SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED) {
        const LRESULT hidden = SendMessageW(button, WM_QUERYUISTATE, 0, 0);
        showsFocus = look.showsFocus && (hidden & UISF_HIDEFOCUS) == 0;
        showsKeys = look.showsKeys && (hidden & UISF_HIDEACCEL) == 0;
    }

    static std::string textOf(HWND button) {
        std::array<wchar_t, 256> text{};
        const int length = GetWindowTextW(button, text.data(), static_cast<int>(text.size()));
        return common::utf8({text.data(), static_cast<std::size_t>(length)});
    }

    std::string text;
    bool isCheckBox;
    bool isChecked;
    bool showsFocus = true;
    bool showsKeys = true;
};

void drawFocus(const Canvas& canvas, const Box& box, const ButtonLook& look) {
    canvas.frameRound(box, look.scale(kRadius), look.scale(2), look.palette.accent);
}

void drawPush(const Canvas& canvas, const Box& box, const ButtonState& state, UINT flags,
              const ButtonLook& look) {
    const Palette& palette = look.palette;
    const bool enabled = (flags & CDIS_DISABLED) == 0;
    const Colour face = (flags & CDIS_SELECTED) ? palette.buttonPressed
                        : (flags & CDIS_HOT)    ? palette.buttonHot
                                                : palette.button;
    const Colour line = look.isDefault ? palette.accent : palette.buttonLine;
    canvas.fillRound(box, look.scale(kRadius), enabled ? line : mixed(line, look.ground, 128));
    const int thin = std::max(look.scale(1), 1);
    canvas.fillRound(box.inset(thin, thin), look.scale(kRadius) - thin,
                     enabled ? face : mixed(face, look.ground, 128));
    canvas.label(box, state.text, look.fonts.get(Font::normal),
                 enabled ? palette.text : palette.disabledText, DT_CENTER, state.showsKeys);
}

void drawMark(const Canvas& canvas, const Box& box, Colour colour) {
    const double size = box.width();
    const auto distance = [&](double x, double y, double x1, double y1, double x2, double y2) {
        const double dx = x2 - x1;
        const double dy = y2 - y1;
        const double along =
            std::clamp(((x - x1) * dx + (y - y1) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
        const double offX = x - x1 - along * dx;
        const double offY = y - y1 - along * dy;
        return offX * offX + offY * offY;
    };
    canvas.fillInside(
        box,
        [&](double x, double y) {
            const double px = (x - box.left) / size;
            const double py = (y - box.top) / size;
            constexpr double kThickness = 0.065 * 0.065;
            return distance(px, py, 0.24, 0.52, 0.43, 0.71) <= kThickness ||
                   distance(px, py, 0.43, 0.71, 0.77, 0.30) <= kThickness;
        },
        colour);
}

void drawCheckBox(const Canvas& canvas, const Box& box, const ButtonState& state, UINT flags,
                  const ButtonLook& look) {
    const Palette& palette = look.palette;
    const int size = look.scale(kCheckSize);
    const int top = box.top + (box.height() - size) / 2;
    const Box mark{box.left, top, box.left + size, top + size};
    const int radius = look.scale(3);
    const int thin = std::max(look.scale(1), 1);
    const bool hot = (flags & CDIS_HOT) != 0;
    canvas.fillRound(mark, radius, state.isChecked ? palette.accent : palette.faintText);
    if (state.isChecked) {
        drawMark(canvas, mark, palette.ground);
    } else {
        canvas.fillRound(mark.inset(thin, thin), radius - thin,
                         hot ? palette.buttonHot : look.ground);
    }
    canvas.label({mark.right + look.scale(7), box.top, box.right, box.bottom}, state.text,
                 look.fonts.get(Font::normal), palette.text, DT_LEFT, state.showsKeys);
}

}  // namespace

LRESULT customDrawButton(const NMCUSTOMDRAW& notice, const ButtonLook& look) {
    const bool systemKnowsBetter = look.palette.appearance == Appearance::highContrast;
    if (systemKnowsBetter || notice.dwDrawStage != CDDS_PREPAINT) return CDRF_DODEFAULT;
    const ButtonState state(notice.hdr.hwndFrom, look);
    paintBuffered(notice.hdc, notice.rc, [&](const Canvas& canvas, const Box& box) {
        canvas.fill(box, look.ground);
        if (state.isCheckBox) {
            drawCheckBox(canvas, box, state, notice.uItemState, look);
        } else {
            drawPush(canvas, box, state, notice.uItemState, look);
        }
        if ((notice.uItemState & CDIS_FOCUS) && state.showsFocus) drawFocus(canvas, box, look);
    });
    return CDRF_SKIPDEFAULT;
}

void drawLink(const DRAWITEMSTRUCT& item, const Box& whole, const ButtonLook& look) {
    const ButtonState state(item.hwndItem, look);
    paintBuffered(item.hDC, item.rcItem, [&](const Canvas& canvas, const Box& box) {
        const HFONT font = look.fonts.get(Font::normal);
        canvas.fill(box, look.ground);
        canvas.label(whole, state.text, font, look.palette.accent, DT_LEFT, false);
        const int thin = std::max(look.scale(1), 1);
        const int line = whole.bottom - std::max(whole.height() / 8, thin);
        canvas.fill({whole.left, line, whole.right, line + thin}, look.palette.accent);
        if ((item.itemState & ODS_FOCUS) && state.showsFocus) {
            canvas.frameRound(whole, 0, thin, look.palette.text);
        }
    });
}

}  // namespace jsw::window
