#pragma once

#include "PublicLib/locks/CriticalSection.h"
#include "jsw/SingletonMgr.h"
#include "jsw/jsw.h"

#include <atomic>
#include <cstdint>
#include <memory>

namespace jsw {

struct Job;

/// What stands behind the exported functions: the state of the process, the API lock and the steps
/// of each function. Every operation may raise; the exports let nothing out.
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
    template <class Work>
    void whileInitialised(const Work& work);
    void createSingletons();
    void destroySingletons();
    void finishTermination();

    CriticalSection apiLock_;        // taken for the whole of every operation; re-entrant
    CriticalSection singletonLock_;  // for the manager alone; inside the API lock, never around it
    std::atomic<bool> initialised_{false};
    std::atomic<bool> inPrompt_{false};
    std::unique_ptr<SingletonMgr> singletons_;
};

}  // namespace jsw
