#pragma once

#include "jsw/ApiGate.h"
#include "jsw/SingletonMgr.h"
#include "jsw/modules/Job.h"
#include <jsw/jsw.h>

#include <cstdint>
#include <memory>

namespace jsw {

class Controller;
class JobSession;

/// Implements the exported functions: the steps of each, inside the API gate, on the present
/// JobSession. Every operation may throw; the exports catch everything.
///
/// A driver may call from inside its status callback, on any thread. Nothing waits there
/// (NoWaiting): a call that would have to wait is refused, with a line in the log. JSWTerminate is
/// never refused: the job is over for the driver at once. If ending it would have to wait, a new
/// thread ends it, or a JSWInit that comes earlier. If that thread cannot be started, the next
/// JSWInit or JSWTerminate ends the job.
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

    ApiGate gate_;
    // Of the thread that is inside the gate:
    std::unique_ptr<SingletonMgr> singletons_;
    bool inPrompt_ = false;
    bool inStep_ = false;  // a start or an end is in progress
};

}  // namespace jsw
