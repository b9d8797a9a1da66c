#include "samples/legacy/PromptText.h"

#include "samples/legacy/ControlIds.h"

namespace jsw::legacy {

namespace {

/** The kinds of prompts this module knows. */
struct PromptKind {
    int32_t type;
    const char* text;
};

constexpr int32_t kTurnStack = 1;

constexpr PromptKind kKinds[] = {
    {kTurnStack,
     "Turn the printed stack over and put it back into the paper tray to print the second side."},
    {2, "The paper tray is empty. Load paper."},
    {3, "A cartridge is empty. Put in a new one."},
    {4, "Close the cover of the printer."},
    {5, "Remove the jammed paper."},
};

constexpr struct {
    uintptr_t message;
    const char* text;
} kNotes[] = {
    {JSW_LEGACY_PAPER_LOADED, "Paper has been loaded."},
    {JSW_LEGACY_COVER_OPEN, "The cover is open."},
    {JSW_LEGACY_COVER_CLOSED, "The cover is closed."},
    {JSW_LEGACY_PRINTER_BUSY, "The printer is busy."},
    {JSW_LEGACY_PRINTER_READY, "The printer is ready."},
};

/** How many sheets lie in the stack, when the driver knows the pages. */
std::string sheets(int32_t totalPages) {
    if (totalPages <= 0) {
        return {};
    }
    const int32_t count = totalPages / 2 + totalPages % 2;
    return "\n\n" + std::to_string(totalPages) + (totalPages == 1 ? " page on " : " pages on ") +
           std::to_string(count) + (count == 1 ? " sheet." : " sheets.");
}

}  // namespace

std::string promptText(int32_t type, int32_t totalPages) {
    for (const PromptKind& kind : kKinds) {
        if (kind.type == type) {
            return kind.text + (type == kTurnStack ? sheets(totalPages) : std::string());
        }
    }
    return "The printer needs your attention (" + std::to_string(type) + ").";
}

const char* noteText(uintptr_t message) {
    for (const auto& note : kNotes) {
        if (note.message == message) {
            return note.text;
        }
    }
    return nullptr;
}

}  // namespace jsw::legacy
