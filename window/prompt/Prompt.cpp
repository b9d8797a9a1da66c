#include "window/prompt/Prompt.h"

#include "window/prompt/ControlIds.h"
#include "window/prompt/PromptDialog.h"
#include "window/ui/Dpi.h"
#include "window/ui/Look.h"

#include <windows.h>

namespace jsw::prompt {

namespace {

HMODULE thisModule() {
    HMODULE module = nullptr;
    GetModuleHandleExA(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const char*>(&thisModule), &module);
    return module;
}

}  // namespace

void runPrompt(const std::string& printer, int32_t type, int32_t totalPages) {
    const ui::SharpWindows sharp;
    const ui::VisualStyles styles(thisModule());
    // The interface does not return the answer: the driver only sees that the prompt is over.
    PromptDialog(printer, type, totalPages).run(thisModule());
}

void postToPrompt(uintptr_t message) {
    PromptDialog::post(message);
}

}  // namespace jsw::prompt
