#pragma once

#include "PublicLib/locks/CriticalSection.h"
#include "jsw/ApiGate.h"
#include "jsw/SingletonMgr.h"
#include "jsw/modules/Job.h"
#include <jsw/jsw.h>

#include <atomic>
#include <cstdint>
#include <memory>

namespace jsw {

class Controller;
class JobSession;

/// What stands behind the exported functions: the steps of each, inside the API gate, on the
/// present JobSession. Every operation may raise; the exports let nothing out.
///
/// A driver may call from inside its own status callback, on whatever thread that runs. Nothing is
/// waited for there (NoWaiting): a call that would have to wait is refused, with a line in the log.
/// JSWTerminate never is: the job is over for the driver at once, and when its end cannot be
/// carried out there without waiting, a thread made for it does. A JSWInit that comes before
/// carries it out itself; when there is no such thread, the next JSWInit or JSWTerminate does.
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
    using Session = std::shared_ptr<JobSession>;

    const char* whyNoStart(const JobSession* before) const;
    bool startJob(const Job& job, JswStatusCallback callback);
    void terminateWithoutWaiting();
    void endNowOrAfterStart(Session session);
    void endJob(Session session);
    void endOnThreadOfItsOwn(const Session& session);
    static unsigned __stdcall endThread(void* argument);
    template <class Work>
    void whileRunning(const char* function, const Work& work);
    void createSingletons();
    void destroySingletons();

    ApiGate gate_;
    CriticalSection singletonLock_;  // for the manager alone; inside the gate, never around it
    std::unique_ptr<SingletonMgr> singletons_;
    // Of the thread that is inside the gate:
    bool inPrompt_ = false;
    bool inStep_ = false;  // a start or an end is at work
};

}  // namespace jsw
