/**
 * The module's entry points. One prompt at a time, on one thread; messages for it may come from any
 * thread.
 */
#include "window/prompt/PromptDialog.h"
#include "window/prompt/PromptIds.h"
#include <jsw/legacy.h>

#include <algorithm>
#include <string>

JSW_LEGACY_ENTRY_POINTS(JSW_MODULE_DECLARE)
JSW_LEGACY_REQUIRE_ENTRY_POINTS

namespace {

constexpr size_t kLongestName = 220;  // in a spooler

/** Printer between JSWInitEx and JSWTerminate. */
std::string& printer() {
    static std::string name;
    return name;
}

bool initialised = false;

}  // namespace

uint32_t JSWInitEx(const char* friendlyName) {
    try {
        printer().assign(friendlyName != nullptr ? friendlyName : "");
        printer().resize(std::min(printer().size(), kLongestName));
        initialised = true;
    } catch (...) {
        initialised = false;  // out of memory
    }
    return initialised ? 1 : 0;
}

void JSWDisplayPrompt(int32_t promptType, int32_t totalPages) {
    if (!initialised) return;
    try {
        // The interface has no place for the answer: the driver sees that the prompt is over.
        jsw::window::PromptDialog(printer(), promptType, totalPages).run();
    } catch (...) {
        // Out of memory: the user is not asked.
    }
}

void JSWPostDlgMsg(void* message) {
    jsw::window::PromptDialog::post(reinterpret_cast<uintptr_t>(message));
}

/** May be called inside the dialog's message loop; then it closes the prompt. */
void JSWTerminate(void) {
    jsw::window::PromptDialog::post(JSW_LEGACY_CLOSE);
    initialised = false;
}
