#include "jsw/Thread.h"

#include "PublicLib/calls/EntryGuard.h"
#include "PublicLib/errors/ErrorPlaces.h"
#include "PublicLib/win/Wait.h"

#include <windows.h>

#include <process.h>

namespace jsw {

Thread::Thread(Runnable* runnable) : runnable_(runnable) {
}

Thread::~Thread() {
    wait(INFINITE);
}

void Thread::launch() {
    handle_.reset(reinterpret_cast<HANDLE>(
        _beginthreadex(nullptr, kDefaultStackSize, &Thread::entry, runnable_, 0, nullptr)));
    if (!handle_) raiseLastError("Thread::launch()", place::kThreadLaunch);
}

bool Thread::wait(std::uint32_t timeoutMilliseconds) const {
    if (!handle_) return false;
    const DWORD result = timeoutMilliseconds == INFINITE
                             ? waitServingWindows(handle_.get())
                             : WaitForSingleObject(handle_.get(), timeoutMilliseconds);
    return result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
}

unsigned __stdcall Thread::entry(void* argument) {
    EntryGuard::run(component::kJsw, "a thread", [&] { static_cast<Runnable*>(argument)->run(); });
    return 0;
}

}  // namespace jsw
