#include "samples/view/WindowThread.h"

#include "samples/view/Window.h"

#include <windows.h>

#include <process.h>

#include <cstdint>
#include <utility>

namespace sampleview {
namespace {

/** What the thread is given. */
struct Start {
    std::shared_ptr<ViewState> state;
    HMODULE module;
};

/** Calls ViewState::threadEnded when the thread, or the attempt to start one, is over. */
class EndNotice {
  public:
    explicit EndNotice(ViewState& state) : state_(state) {}
    ~EndNotice() { state_.threadEnded(); }
    EndNotice(const EndNotice&) = delete;
    EndNotice& operator=(const EndNotice&) = delete;

  private:
    ViewState& state_;
};

void showWindow(const Start& start) noexcept {
    const EndNotice notice(*start.state);
    try {
        Window window(start.state, start.module);
        window.run();
    } catch (...) {
        // The job goes on without a window.
    }
}

unsigned __stdcall threadMain(void* argument) {
    std::unique_ptr<Start> start(static_cast<Start*>(argument));
    const HMODULE module = start->module;
    showWindow(*start);
    start.reset();
    // Not a return: it would go back into code that may be unloaded by then.
    FreeLibraryAndExitThread(module, 0);
}

/** This module with one reference added, or null. */
HMODULE referToThisModule() {
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCSTR>(&threadMain), &module);
    return module;
}

}  // namespace

void startWindowThread(std::shared_ptr<ViewState> state) {
    auto start = std::make_unique<Start>(Start{std::move(state), referToThisModule()});
    const std::uintptr_t thread =
        start->module ? _beginthreadex(nullptr, 0, threadMain, start.get(), 0, nullptr) : 0;
    if (thread == 0) {
        const EndNotice notice(*start->state);
        if (start->module) FreeLibrary(start->module);
        return;
    }
    // The thread owns it now. The end of the thread is told by the state, not by the handle.
    (void)start.release();
    CloseHandle(reinterpret_cast<HANDLE>(thread));
}

}  // namespace sampleview
