#pragma once

#include "PublicLib/locks/CriticalSection.h"
#include "PublicLib/locks/WindowSafeLock.h"
#include "jsw/Controller.h"
#include "jsw/SingletonMgr.h"
#include <jsw/jsw.h>

#include <atomic>
#include <cstdint>
#include <memory>

namespace jsw {

/// What stands behind the exported functions: the state of the process, the API lock and the steps
/// of each function. Every operation may raise; the exports let nothing out.
///
/// An ordinary thread waits for the API lock, and for the rules thread when it ends or replaces a
/// job; windows of the thread are served meanwhile. A driver may also call from inside its own
/// status callback, on whatever thread that runs, and there nothing is waited for that may be
/// inside a module, because the module may be waiting for this very thread:
/// - While another thread has the API lock, a call from the callback does nothing; an end of the
///   job is noted, and that thread carries it out before it gives the lock back.
/// - While the rules thread is at work, no job is started, and an end is noted for the rules thread
///   to carry out when it has left its last module, or for an ordinary thread that comes before.
/// Whoever notes an end tries for the lock afterwards, and whoever gives the lock back looks for a
/// noted end afterwards, so none is forgotten.
class DriverApi final : private JobWatch {
  public:
    static DriverApi& instance();

    /// @param callback  null: the driver wants no status codes
    bool init(const Job& job, JswStatusCallback callback);
    void terminate();
    void updateInfo(std::uint32_t value1, std::uint32_t value2, std::uint32_t value3,
                    std::uint32_t value4, std::uint32_t value5, void* data);
    void displayPrompt(std::uint32_t promptType, std::uint32_t totalPages);
    void postDlgMsg(void* message);

  private:
    enum class Phase { settled, starting, ending };

    class PhaseScope;
    class Turn;
    class NotedEnd;

    void rulesStart() override;
    void rulesEnd() override;
    bool isEndNoted() const override;

    bool enter();
    bool tryToEnter();
    void leave();
    bool startJob(const Job& job);
    void endJob();
    bool mayWaitForRules() const;
    void carryOutNotedEnd();
    template <class Work>
    void whileInitialised(const Work& work);
    template <class Work>
    void whileRunning(const Work& work);
    void createSingletons();
    void destroySingletons();

    WindowSafeLock apiLock_;         // taken for the whole of every operation; re-entrant
    CriticalSection singletonLock_;  // for the manager alone; inside the API lock, never around it
    int turns_ = 0;                  // that the holder of the API lock has in one another
    std::atomic<Phase> phase_{Phase::settled};
    std::atomic<bool> endNoted_{false};
    std::atomic<bool> rulesRunning_{false};  // or about to
    std::atomic<bool> initialised_{false};
    std::atomic<bool> inPrompt_{false};
    std::unique_ptr<SingletonMgr> singletons_;
};

}  // namespace jsw
