#pragma once

#include "tests/support/Eventually.h"
#include "tests/support/ImportTable.h"

#include <windows.h>

#include <atomic>
#include <functional>
#include <thread>
#include <utility>

namespace jsw::test {

/// A thread that runs into a lock that another thread holds. A test continues when the thread
/// really waits, not after a delay.
class HeldUpThread {
  public:
    explicit HeldUpThread(std::function<void()> work) : work_(std::move(work)) {}
    ~HeldUpThread() {
        if (thread_.joinable()) thread_.join();
    }
    HeldUpThread(const HeldUpThread&) = delete;
    HeldUpThread& operator=(const HeldUpThread&) = delete;

    /// Starts the work, once; true when it waits for a lock.
    bool meetsALock() {
        if (!started_.exchange(true)) {
            thread_ = std::thread([this] {
                id_ = GetCurrentThreadId();
                work_();
            });
        }
        return eventually([this] { return isHeldUp_.load(); });
    }
    void join() { thread_.join(); }
    /// For a lock that is never released.
    void leaveAlone() { thread_.detach(); }

  private:
    using Enter = decltype(EnterCriticalSection);

    std::function<void()> work_;
    std::atomic<bool> started_{false};
    std::atomic<DWORD> id_{0};
    std::atomic<bool> isHeldUp_{false};
    std::thread thread_;
    ReplacedImport<Enter, std::function<void(Enter*, CRITICAL_SECTION*)>> enter_{
        ImportTable(GetModuleHandleA(nullptr)), "EnterCriticalSection",
        [this](Enter* enter, CRITICAL_SECTION* section) {
            if (TryEnterCriticalSection(section) != FALSE) return;
            if (GetCurrentThreadId() == id_) isHeldUp_ = true;
            enter(section);
        }};
};

}  // namespace jsw::test
