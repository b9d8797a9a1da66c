#pragma once

#include "PublicLib/locks/CriticalSection.h"
#include "jsw/SingletonMgr.h"
#include "jsw/jsw.h"

#include <atomic>
#include <cstdint>
#include <memory>

namespace jsw {

class Controller;
struct Job;

/// What stands behind the exported functions: the state of the process, the API lock and the steps
/// of each function. Every operation may raise; the exports let nothing out.
///
/// A driver may call from inside its own status callback, on any thread. While another thread
/// starts or ends the job, and so perhaps waits for the very thread that is in the callback, such a
/// call does not wait: a progress update is dropped, an end is carried out by the thread that is at
/// it.
class DriverApi {
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

    bool enter();
    bool startJob(const Job& job);
    void endJob();
    template <class Work>
    void whileInitialised(const Work& work);
    void createSingletons();
    void destroySingletons();

    CriticalSection apiLock_;        // taken for the whole of every operation; re-entrant
    CriticalSection singletonLock_;  // for the manager alone; inside the API lock, never around it
    std::atomic<Phase> phase_{Phase::settled};
    std::atomic<bool> endRequested_{false};  // while a job starts
    std::atomic<bool> initialised_{false};
    std::atomic<bool> inPrompt_{false};
    std::unique_ptr<SingletonMgr> singletons_;
};

}  // namespace jsw
