#include "jsw/DriverApi.h"

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/logging/Guard.h"
#include "jsw/Controller.h"
#include "jsw/StatusCallback.h"

#include <windows.h>

#include <mutex>
#include <utility>

namespace jsw {

namespace {

/// Releases a lock that is held already.
using HeldLock = std::unique_lock<CriticalSection>;

/// Sets a flag for the length of a scope and puts it back as it was.
class FlagScope {
  public:
    explicit FlagScope(std::atomic<bool>& flag) : flag_(flag), before_(flag.exchange(true)) {}
    ~FlagScope() { flag_ = before_; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

  private:
    std::atomic<bool>& flag_;
    bool before_;
};

}  // namespace

class DriverApi::PhaseScope {
  public:
    PhaseScope(std::atomic<Phase>& phase, Phase during) : phase_(phase), before_(phase) {
        phase_ = during;
    }
    ~PhaseScope() { phase_ = before_; }
    PhaseScope(const PhaseScope&) = delete;
    PhaseScope& operator=(const PhaseScope&) = delete;

  private:
    std::atomic<Phase>& phase_;
    Phase before_;
};

DriverApi& DriverApi::instance() {
    // Never destroyed: tearing a job down while the library is unloaded would call into modules
    // under the loader's lock. A driver ends its jobs with JSWTerminate.
    static NeverDestroyed<DriverApi> api;
    return *api;
}

/// Takes the API lock. False, without it, when waiting might never end: see the class.
bool DriverApi::enter() {
    if (!isInsideStatusCallback()) {
        apiLock_.lock();
        return true;
    }
    while (!apiLock_.try_lock()) {
        if (phase_ != Phase::settled) return false;
        Sleep(1);
    }
    return true;
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
    if (!enter()) return false;
    const HeldLock lock(apiLock_, std::adopt_lock);
    // On this thread a job may be starting or ending: this call came from inside one of its calls.
    if (phase_ != Phase::settled) return false;
    inPrompt_ = false;
    setStatusCallback(callback);
    const bool started = startJob(job);
    if (endRequested_.exchange(false)) endJob();
    return started;
}

bool DriverApi::startJob(const Job& job) {
    endRequested_ = false;
    const PhaseScope starting(phase_, Phase::starting);
    createSingletons();
    const bool started = Controller::instance()->jswInit(job);
    initialised_ = true;  // a job that could not start is ended by JSWTerminate all the same
    return started;
}

void DriverApi::terminate() {
    while (!enter()) {
        if (phase_ == Phase::ending) return;
        endRequested_ = true;
        if (phase_ == Phase::starting) return;  // noted before the start was over
    }
    const HeldLock lock(apiLock_, std::adopt_lock);
    if (phase_ == Phase::starting) endRequested_ = true;
    if (phase_ == Phase::settled) endJob();
}

void DriverApi::endJob() {
    const PhaseScope ending(phase_, Phase::ending);
    if (initialised_) {
        // Whatever goes wrong, the job is over and what it has built must go.
        runGuarded(component::kJsw, "JSWTerminate", [] { Controller::instance()->jswTerminate(); });
    }
    initialised_ = false;
    // From inside a prompt the driver is still in the middle of the objects.
    if (!inPrompt_) destroySingletons();
}

/// Tests before and after taking the lock: the job may end while this thread waits.
template <class Work>
void DriverApi::whileInitialised(const Work& work) {
    if (!initialised_ || !enter()) return;
    const HeldLock lock(apiLock_, std::adopt_lock);
    if (initialised_) work(*Controller::instance());
}

void DriverApi::updateInfo(std::uint32_t value1, std::uint32_t value2, std::uint32_t value3,
                           std::uint32_t value4, std::uint32_t value5, void* data) {
    whileInitialised([&](Controller& controller) {
        controller.jswUpdateInfo(value1, value2, value3, value4, value5, data);
    });
}

void DriverApi::displayPrompt(std::uint32_t promptType, std::uint32_t totalPages) {
    whileInitialised([&](Controller& controller) {
        const FlagScope inPrompt(inPrompt_);
        controller.jswDisplayPrompt(promptType, totalPages);
    });
}

void DriverApi::postDlgMsg(void* message) {
    whileInitialised([&](Controller& controller) { controller.jswPostDlgMsg(message); });
}

}  // namespace jsw
