#include "window/prompt/PromptText.h"

#include "window/prompt/ControlIds.h"

namespace jsw::prompt {

namespace {

constexpr int32_t kTurnStack = 1;

/** The prompt types that this module knows. */
constexpr struct {
    int32_t type;
    const char* Strings::*text;
} kKinds[] = {
    {kTurnStack, &Strings::turnStack}, {2, &Strings::loadPaper}, {3, &Strings::changeCartridge},
    {4, &Strings::closeCover},         {5, &Strings::removeJam},
};

constexpr struct {
    uintptr_t message;
    const char* Strings::*text;
} kNotes[] = {
    {JSW_LEGACY_PAPER_LOADED, &Strings::paperLoaded},
    {JSW_LEGACY_COVER_OPEN, &Strings::coverOpen},
    {JSW_LEGACY_COVER_CLOSED, &Strings::coverClosed},
    {JSW_LEGACY_PRINTER_BUSY, &Strings::printerBusy},
    {JSW_LEGACY_PRINTER_READY, &Strings::printerReady},
};

/** The number of sheets in the stack, if the driver knows the pages. */
std::string sheets(int32_t totalPages, const Strings& strings) {
    if (totalPages <= 0) {
        return {};
    }
    const int32_t count = totalPages / 2 + totalPages % 2;
    return "\n\n" + ui::fillIn(strings.pages.form(totalPages), {std::to_string(totalPages)}) +
           ui::fillIn(strings.onSheets.form(count), {std::to_string(count)});
}

}  // namespace

std::string promptText(int32_t type, int32_t totalPages, const Strings& strings) {
    for (const auto& kind : kKinds) {
        if (kind.type == type) {
            return strings.*kind.text +
                   (type == kTurnStack ? sheets(totalPages, strings) : std::string());
        }
    }
    return ui::fillIn(strings.attention, {std::to_string(type)});
}

const char* noteText(uintptr_t message, const Strings& strings) {
    for (const auto& note : kNotes) {
        if (note.message == message) {
            return strings.*note.text;
        }
    }
    return nullptr;
}

}  // namespace jsw::prompt
