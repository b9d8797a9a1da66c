#include "jsw/DriverApi.h"

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/logging/Guard.h"
#include "jsw/LibraryPin.h"
#include "jsw/StatusCallback.h"
#include "jsw/modules/BillboardView.h"

#include <mutex>
#include <utility>

namespace jsw {

namespace {

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

// Never destroyed when the process ends: tearing a job down at that moment would call into modules
// under the loader's lock. A driver ends its jobs with JSWTerminate.
NeverDestroyed<DriverApi> driverApi;

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

/// A thread's turn inside the library; false when it has to do without.
class DriverApi::Turn {
  public:
    explicit Turn(DriverApi& api) : api_(api), entered_(api.enter()) {}
    ~Turn() {
        if (entered_) api_.leave();
    }
    explicit operator bool() const { return entered_; }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

  private:
    DriverApi& api_;
    bool entered_;
};

/// Carries out, at the end of a scope, the end of the job that was noted meanwhile.
class DriverApi::NotedEnd {
  public:
    explicit NotedEnd(DriverApi& api) : api_(api) {}
    ~NotedEnd() { api_.carryOutNotedEnd(); }
    NotedEnd(const NotedEnd&) = delete;
    NotedEnd& operator=(const NotedEnd&) = delete;

  private:
    DriverApi& api_;
};

DriverApi& DriverApi::instance() {
    return *driverApi;
}

bool DriverApi::enter() {
    if (isInsideStatusCallback()) return tryToEnter();
    apiLock_.lock();
    ++turns_;
    return true;
}

void DriverApi::leave() {
    if (turns_ > 1) {
        --turns_;
        apiLock_.unlock();
        return;
    }
    do {
        carryOutNotedEnd();
        turns_ = 0;
        apiLock_.unlock();
        // Another end may have been noted until then, by a thread that could not have the lock.
    } while (endNoted_ && mayWaitForRules() && tryToEnter());
}

bool DriverApi::tryToEnter() {
    if (!apiLock_.try_lock()) return false;
    ++turns_;
    return true;
}

bool DriverApi::mayWaitForRules() const {
    return !rulesRunning_ || !isInsideStatusCallback();
}

void DriverApi::carryOutNotedEnd() {
    if (endNoted_ && mayWaitForRules()) endJob();
}

void DriverApi::rulesStart() {
    rulesRunning_ = true;
}

void DriverApi::rulesEnd() {
    rulesRunning_ = false;
    if (endNoted_ && tryToEnter()) leave();
}

bool DriverApi::isEndNoted() const {
    return endNoted_;
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
    const Turn turn(*this);
    // On this thread a job may be starting or ending: this call came from inside one of its calls.
    if (!turn || phase_ != Phase::settled || !mayWaitForRules()) return false;
    carryOutNotedEnd();  // that of the job before
    inPrompt_ = false;
    setStatusCallback(callback);
    const NotedEnd endOfThisJob(*this);
    return startJob(job);
}

bool DriverApi::startJob(const Job& job) {
    const PhaseScope starting(phase_, Phase::starting);
    createSingletons();
    if (pinError != ERROR_SUCCESS) {
        logLine(component::kJsw, kLogError,
                "ERROR - unable to keep the library loaded, error=", pinError);
    }
    const auto controller = Controller::instance();
    controller->setWatch(this);
    BillboardView::connectCallbacks(controller);
    const bool started = controller->jswInit(job);
    initialised_ = true;  // a job that could not start is ended by JSWTerminate all the same
    return started;
}

void DriverApi::terminate() {
    const bool noteFirst = isInsideStatusCallback() && phase_ != Phase::ending;
    if (noteFirst) {
        setStatusCallback(nullptr);  // the driver hears no more of a job that it has ended there
        endNoted_ = true;
    }
    const Turn turn(*this);
    if (!turn) return;
    if (phase_ == Phase::starting) endNoted_ = true;
    if (phase_ == Phase::settled && mayWaitForRules()) endJob();
}

void DriverApi::endJob() {
    endNoted_ = false;
    const PhaseScope ending(phase_, Phase::ending);
    // Whatever goes wrong, the job is over and what it has built must go.
    runGuarded(component::kJsw, "JSWTerminate", [this] {
        if (initialised_) Controller::instance()->jswTerminate();
        BillboardView::closeWindow();  // a start that has raised may have left it open
    });
    BillboardView::disconnectCallbacks();
    initialised_ = false;
    // From inside a prompt the driver is still in the middle of the objects.
    if (!inPrompt_) destroySingletons();
}

/// Tests before and after taking the lock: the job may end while this thread waits.
template <class Work>
void DriverApi::whileInitialised(const Work& work) {
    if (!initialised_) return;
    const Turn turn(*this);
    if (turn && initialised_) work(*Controller::instance());
}

/// The same, unless the end of the job is noted: then it is over for the driver.
template <class Work>
void DriverApi::whileRunning(const Work& work) {
    if (endNoted_) return;
    whileInitialised([&](Controller& controller) {
        if (!endNoted_) work(controller);
    });
}

void DriverApi::updateInfo(std::uint32_t value1, std::uint32_t value2, std::uint32_t value3,
                           std::uint32_t value4, std::uint32_t value5, void* data) {
    whileRunning([&](Controller& controller) {
        controller.jswUpdateInfo(value1, value2, value3, value4, value5, data);
    });
}

void DriverApi::displayPrompt(std::uint32_t promptType, std::uint32_t totalPages) {
    whileRunning([&](Controller& controller) {
        const FlagScope inPrompt(inPrompt_);
        controller.jswDisplayPrompt(promptType, totalPages);
    });
}

void DriverApi::postDlgMsg(void* message) {
    whileInitialised([&](Controller& controller) { controller.jswPostDlgMsg(message); });
}

}  // namespace jsw
