#include "jsw/DriverApi.h"

#include "PublicLib/NeverDestroyed.h"
#include "jsw/Controller.h"
#include "jsw/StatusCallback.h"

#include <mutex>

namespace jsw {

namespace {

/// Clears a flag at the end of the scope.
class FlagGuard {
  public:
    explicit FlagGuard(std::atomic<bool>& flag) : flag_(flag) {}
    ~FlagGuard() { flag_ = false; }
    FlagGuard(const FlagGuard&) = delete;
    FlagGuard& operator=(const FlagGuard&) = delete;

  private:
    std::atomic<bool>& flag_;
};

}  // namespace

DriverApi& DriverApi::instance() {
    // Never destroyed: tearing a job down while the library is unloaded would call into modules
    // under the loader's lock. A driver ends its jobs with JSWTerminate.
    static NeverDestroyed<DriverApi> api;
    return *api;
}

void DriverApi::createSingletons() {
    if (singletons_) return;
    const std::lock_guard lock(singletonLock_);
    if (!singletons_) singletons_ = std::make_unique<SingletonMgr>();
}

void DriverApi::destroySingletons() {
    const std::lock_guard lock(singletonLock_);
    singletons_.reset();
}

bool DriverApi::init(const Job& job, JswStatusCallback callback) {
    inPrompt_ = false;
    const std::lock_guard lock(apiLock_);
    setStatusCallback(callback);
    createSingletons();
    const bool started = Controller::instance()->jswInit(job);
    initialised_ = true;  // a job that could not start is ended by JSWTerminate all the same
    return started;
}

void DriverApi::terminate() {
    const std::lock_guard lock(apiLock_);
    if (initialised_) {
        // Whatever goes wrong, the job is over and what it has built must go.
        try {
            Controller::instance()->jswTerminate();
        } catch (...) {
            finishTermination();
            throw;
        }
    }
    finishTermination();
}

void DriverApi::finishTermination() {
    initialised_ = false;
    // From inside a prompt the driver is still in the middle of the objects.
    if (!inPrompt_) destroySingletons();
}

/// Tests before and after taking the lock: the job may end while this thread waits.
template <class Work>
void DriverApi::whileInitialised(const Work& work) {
    if (!initialised_) return;
    const std::lock_guard lock(apiLock_);
    if (initialised_) work(*Controller::instance());
}

void DriverApi::updateInfo(std::uint32_t value1, std::uint32_t value2, std::uint32_t value3,
                           std::uint32_t value4, std::uint32_t value5, void* data) {
    whileInitialised([&](Controller& controller) {
        controller.jswUpdateInfo(value1, value2, value3, value4, value5, data);
    });
}

void DriverApi::displayPrompt(std::uint32_t promptType, std::uint32_t totalPages) {
    if (!initialised_) return;
    const FlagGuard clearAtEnd(inPrompt_);  // after the lock is released
    whileInitialised([&](Controller& controller) {
        inPrompt_ = true;
        controller.jswDisplayPrompt(promptType, totalPages);
    });
}

void DriverApi::postDlgMsg(void* message) {
    whileInitialised([&](Controller& controller) { controller.jswPostDlgMsg(message); });
}

}  // namespace jsw
