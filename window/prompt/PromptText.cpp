#include "window/prompt/PromptText.h"

#include "common/Phrase.h"
#include "window/prompt/PromptIds.h"

namespace jsw::window {
namespace {

constexpr int32_t kTurnStack = 1;

/** The prompt types that this module knows. */
constexpr struct {
    int32_t type;
    std::string PromptTexts::*text;
} kKinds[] = {
    {kTurnStack, &PromptTexts::turnStack}, {2, &PromptTexts::loadPaper},
    {3, &PromptTexts::changeCartridge},    {4, &PromptTexts::closeCover},
    {5, &PromptTexts::removeJam},
};

constexpr struct {
    uintptr_t message;
    std::string PromptTexts::*text;
} kNotes[] = {
    {JSW_LEGACY_PAPER_LOADED, &PromptTexts::paperLoaded},
    {JSW_LEGACY_COVER_OPEN, &PromptTexts::coverOpen},
    {JSW_LEGACY_COVER_CLOSED, &PromptTexts::coverClosed},
    {JSW_LEGACY_PRINTER_BUSY, &PromptTexts::printerBusy},
    {JSW_LEGACY_PRINTER_READY, &PromptTexts::printerReady},
};

/** The number of sheets in the stack, if the driver knows the pages. */
std::string sheets(int32_t totalPages, const PromptTexts& texts) {
    if (totalPages <= 0) {
        return {};
    }
    const int32_t count = totalPages / 2 + totalPages % 2;
    const auto counted = [](int32_t number, const std::string& one, const std::string& other) {
        return common::fillIn(common::plural(number, one, other), {std::to_string(number)});
    };
    return "\n\n" + common::fillIn(texts.stack, {counted(totalPages, texts.pagesOne, texts.pages),
                                                 counted(count, texts.sheetsOne, texts.sheets)});
}

}  // namespace

std::string promptText(int32_t type, int32_t totalPages, const PromptTexts& texts) {
    for (const auto& kind : kKinds) {
        if (kind.type == type) {
            return texts.*kind.text +
                   (type == kTurnStack ? sheets(totalPages, texts) : std::string());
        }
    }
    return common::fillIn(texts.attention, {std::to_string(type)});
}

const std::string* noteText(uintptr_t message, const PromptTexts& texts) {
    for (const auto& note : kNotes) {
        if (note.message == message) return &(texts.*note.text);
    }
    return nullptr;
}

}  // namespace jsw::window
