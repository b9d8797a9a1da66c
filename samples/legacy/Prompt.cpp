#include "samples/legacy/Prompt.h"

#include "samples/legacy/ControlIds.h"
#include "samples/legacy/PromptText.h"

#include <windows.h>

#include <atomic>

namespace jsw::legacy {

namespace {

constexpr UINT kDriverMessage = WM_APP;  // wParam: a JswLegacyMessage

/** The dialog that is up, or null. */
std::atomic<HWND> currentDialog{nullptr};

struct PromptContent {
    const char* printer;
    const char* text;
};

HMODULE thisModule() {
    HMODULE module = nullptr;
    GetModuleHandleExA(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const char*>(&currentDialog), &module);
    return module;
}

void onDriverMessage(HWND dialog, uintptr_t message) {
    switch (message) {
        case JSW_LEGACY_PRESS_CONTINUE:
            EndDialog(dialog, JSW_LEGACY_CONTINUE);
            return;
        case JSW_LEGACY_PRESS_CANCEL:
        case JSW_LEGACY_CLOSE:
            EndDialog(dialog, JSW_LEGACY_CANCEL);
            return;
        default:
            if (const char* note = noteText(message)) {
                SetDlgItemTextA(dialog, JSW_LEGACY_NOTE, note);
            }
    }
}

INT_PTR CALLBACK promptProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG: {
            // NOLINTNEXTLINE(performance-no-int-to-ptr): how a dialog is handed its content
            const auto& content = *reinterpret_cast<const PromptContent*>(lParam);
            SetDlgItemTextA(dialog, JSW_LEGACY_PRINTER, content.printer);
            SetDlgItemTextA(dialog, JSW_LEGACY_TEXT, content.text);
            currentDialog = dialog;
            return TRUE;  // the focus goes to the default button
        }
        case WM_COMMAND:
            if (LOWORD(wParam) == JSW_LEGACY_CONTINUE || LOWORD(wParam) == JSW_LEGACY_CANCEL) {
                EndDialog(dialog, LOWORD(wParam));
                return TRUE;
            }
            return FALSE;
        case kDriverMessage:
            onDriverMessage(dialog, wParam);
            return TRUE;
        case WM_DESTROY:
            currentDialog = nullptr;
            return FALSE;
        default:
            return FALSE;
    }
}

}  // namespace

void runPrompt(const std::string& printer, const std::string& text) {
    const PromptContent content{printer.c_str(), text.c_str()};
    // The interface has no place for the answer: the driver sees that the prompt is over.
    DialogBoxParamA(thisModule(), MAKEINTRESOURCEA(JSW_LEGACY_PROMPT), nullptr, promptProc,
                    reinterpret_cast<LPARAM>(&content));
}

void postToPrompt(uintptr_t message) {
    // Posted, because the dialog may belong to another thread, which may wait for this one.
    if (const HWND dialog = currentDialog) {
        PostMessageA(dialog, kDriverMessage, message, 0);
    }
}

}  // namespace jsw::legacy
