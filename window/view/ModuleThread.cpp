#include "window/view/ModuleThread.h"

#include <windows.h>

#include <process.h>

#include <cstdint>
#include <memory>
#include <utility>

namespace jsw::window {
namespace {

/** The thread's argument. */
struct Start {
    std::function<void()> work;
    HMODULE module;
};

void doWork(std::unique_ptr<Start> start) noexcept {
    try {
        start->work();
    } catch (...) {
        // Out of memory, or an exception of the host: the job continues without this.
    }
}

unsigned __stdcall threadMain(void* argument) {
    std::unique_ptr<Start> start(static_cast<Start*>(argument));
    const HMODULE module = start->module;
    doWork(std::move(start));
    // Instead of a return, which would continue in code that may be unloaded by then.
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

bool startModuleThread(std::function<void()> work) {
    auto start = std::make_unique<Start>(Start{std::move(work), referToThisModule()});
    const std::uintptr_t thread =
        start->module ? _beginthreadex(nullptr, 0, threadMain, start.get(), 0, nullptr) : 0;
    if (thread == 0) {
        if (start->module) FreeLibrary(start->module);
        return false;
    }
    // The thread owns it now.
    (void)start.release();
    CloseHandle(reinterpret_cast<HANDLE>(thread));
    return true;
}

}  // namespace jsw::window
