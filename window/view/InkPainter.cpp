#include "window/view/InkPainter.h"

#include <algorithm>

namespace jsw::window {
namespace {

/** Of a bar and the part that is not filled; below, a line shows where the bar ends. */
constexpr double kLeastContrast = 3.0;

/** High contrast has no colour for the unfilled part: a line shows its end. */
void paintTrack(const Canvas& canvas, const Box& box, const Look& look) {
    const int radius = box.height() / 2;
    canvas.fillRound(box, radius, look.palette.track);
    if (look.palette.appearance == Appearance::highContrast) {
        canvas.frameRound(box, radius, std::max(look.scale(1), 1), look.palette.line);
    }
}

/** The cartridge's own colour, which says more than whether it is low; the text says that. */
Colour colourOf(const InkCell& cell, const Palette& palette) {
    if (cell.colour && palette.appearance != Appearance::highContrast) return *cell.colour;
    return cell.isLow ? palette.warning : palette.ink;
}

}  // namespace

void paintBar(const Canvas& canvas, const Box& box, int permille, Colour colour, const Look& look) {
    paintTrack(canvas, box, look);
    if (permille <= 0) return;
    Box filled = box;
    filled.right = box.left + box.width() * std::min(permille, 1000) / 1000;
    // A round bar must be at least as wide as high.
    filled.right = std::max(filled.right, filled.left + box.height());
    canvas.fillRound(filled, box.height() / 2, colour);
    if (contrast(colour, look.palette.track) < kLeastContrast) {
        canvas.frameRound(filled, box.height() / 2, std::max(look.scale(1), 1),
                          look.palette.faintText);
    }
}

void paintRunningBar(const Canvas& canvas, const Box& box, int step, const Look& look) {
    paintTrack(canvas, box, look);
    // It enters on the left and leaves on the right.
    const int length = box.width() / 4;
    const int left =
        box.left - length + (box.width() + length) * (step % kRunningBarSteps) / kRunningBarSteps;
    const Box part{std::max(left, box.left), box.top, std::min(left + length, box.right),
                   box.bottom};
    if (part.width() >= box.height()) canvas.fillRound(part, box.height() / 2, look.palette.accent);
}

void paintInk(const Canvas& canvas, Box origin, const InkLayout& ink, const Look& look) {
    if (ink.sentence) paintText(canvas, onCanvas(*ink.sentence, origin), look);
    for (const InkCell& cell : ink.cells) {
        paintText(canvas, onCanvas(cell.label, origin), look);
        paintText(canvas, onCanvas(cell.level, origin), look);
        paintBar(canvas, cell.bar.moved(-origin.left, -origin.top), cell.percent.value_or(0) * 10,
                 colourOf(cell, look.palette), look);
    }
}

}  // namespace jsw::window
