#include "jsw/DriverApi.h"

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/ScopedValue.h"
#include "PublicLib/calls/EntryGuard.h"
#include "PublicLib/calls/NoWaiting.h"
#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/logging/Guard.h"
#include "PublicLib/win/Handles.h"
#include "jsw/Controller.h"
#include "jsw/LibraryPin.h"

#include <process.h>

#include <utility>

namespace jsw {

namespace {

constexpr char kOtherThreadInside[] =
    "it comes from the status callback while another thread is inside the library";

void logRefused(const char* function, const char* reason) {
    logLine(component::kJsw, kLogError, "ERROR - ", function, " is refused: ", reason, ".");
}

bool isJobRunning() {
    const auto session = JobSession::present();
    return session && session->isRunning();
}

// Never destroyed: a teardown while the process exits would call modules under the loader lock. A
// driver ends its jobs with JSWTerminate.
NeverDestroyed<DriverApi> driverApi;

}  // namespace

DriverApi& DriverApi::instance() {
    return *driverApi;
}

bool DriverApi::init(const Job& job, JswStatusCallback callback) {
    const ApiGate::Pass pass(gate_);
    auto session = JobSession::present();
    if (const char* reason = pass ? whyNoStart(session.get()) : kOtherThreadInside) {
        logRefused("JSWInit", reason);
        return false;
    }
    if (session && session->isOver()) endJob(std::move(session));
    inPrompt_ = false;
    const bool started = startJob(job, callback);
    session = JobSession::present();
    if (session->isOver()) endJob(std::move(session));
    return started;
}

/// Null if a job can start.
const char* DriverApi::whyNoStart(const JobSession* before) const {
    if (inStep_) return "a job is starting or ending on this thread";
    if (before != nullptr && NoWaiting::holdsHere() && before->actions().isChoosing())
        return "it comes from the status callback while a billboard is being chosen";
    return nullptr;
}

bool DriverApi::startJob(const Job& job, JswStatusCallback callback) {
    const ScopedValue inStep(inStep_, true);
    if (!singletons_) singletons_ = std::make_unique<SingletonMgr>();
    if (pinError != ERROR_SUCCESS) {
        logLine(component::kJsw, kLogError,
                "ERROR - unable to keep the library loaded, error=", pinError);
    }
    const auto controller = Controller::instance();
    const auto session =
        std::make_shared<JobSession>(BillboardView::instance(), controller, callback);
    if (isJobRunning()) session->setRunning();  // whatever comes of this second start
    JobSession::setPresent(session);
    try {
        const bool started = controller->jswInit(job);
        session->setRunning();  // JSWTerminate also ends a job that could not start
        return started;
    } catch (...) {
        reportException(component::kJsw, "JSWInit");
        return false;
    }
}

void DriverApi::terminate() {
    if (NoWaiting::holdsHere()) return terminateWithoutWaiting();
    const ApiGate::Pass pass(gate_);
    endNowOrAfterStart(JobSession::present());
}

void DriverApi::terminateWithoutWaiting() {
    auto session = JobSession::present();
    if (session) session->setOver();
    const ApiGate::Pass pass(gate_);
    if (pass && (inStep_ || !session || !session->actions().isChoosing())) {
        if (session == JobSession::present()) endNowOrAfterStart(std::move(session));
    } else if (session) {
        endOnThreadOfItsOwn(session);
    }
}

/// If the job is still starting on this thread, ends it after the start.
void DriverApi::endNowOrAfterStart(Session session) {
    if (!inStep_) {
        endJob(std::move(session));
    } else if (session) {
        session->setOver();
    }
}

/// @param session  the present one, or null
void DriverApi::endJob(Session session) {
    const ScopedValue inStep(inStep_, true);
    if (session) {
        session->setOver();
        // Whatever fails, the job is over and its objects must be destroyed.
        runGuarded(component::kJsw, "JSWTerminate", [] { Controller::instance()->jswTerminate(); });
        session->close();
        JobSession::setPresent(nullptr);
        session.reset();  // so that its objects are destroyed in the teardown's order
    }
    // Inside a prompt the driver's call still uses the objects.
    if (!inPrompt_) singletons_.reset();
}

void DriverApi::endOnThreadOfItsOwn(const Session& session) {
    auto job = std::make_unique<std::weak_ptr<JobSession>>(session);
    const KernelHandle thread(reinterpret_cast<HANDLE>(
        _beginthreadex(nullptr, 0, &DriverApi::endThread, job.get(), 0, nullptr)));
    if (thread) {
        static_cast<void>(job.release());  // owned by the thread
    } else {
        logLine(component::kJsw, kLogError,
                "ERROR - no thread to end the job on, error=", GetLastError(),
                ". The next JSWInit or JSWTerminate ends it.");
    }
}

unsigned __stdcall DriverApi::endThread(void* argument) {
    const std::unique_ptr<std::weak_ptr<JobSession>> job(
        static_cast<std::weak_ptr<JobSession>*>(argument));
    EntryGuard::run(component::kJsw, "JSWTerminate", [&] {
        DriverApi& api = instance();
        const ApiGate::Pass pass(api.gate_);
        auto session = job->lock();
        if (session && session == JobSession::present()) api.endJob(std::move(session));
    });
    return 0;
}

/// Tests before and inside the gate: the job may end while this thread waits.
template <class Work>
void DriverApi::whileRunning(const char* function, const Work& work) {
    if (!isJobRunning()) return;
    const ApiGate::Pass pass(gate_);
    if (!pass) return logRefused(function, kOtherThreadInside);
    if (!inStep_ && isJobRunning()) work(*Controller::instance());
}

void DriverApi::updateInfo(std::uint32_t value1, std::uint32_t value2, std::uint32_t value3,
                           std::uint32_t value4, std::uint32_t value5, void* data) {
    whileRunning("JSWUpdateInfo", [&](Controller& controller) {
        controller.jswUpdateInfo(value1, value2, value3, value4, value5, data);
    });
}

void DriverApi::displayPrompt(std::uint32_t promptType, std::uint32_t totalPages) {
    whileRunning("JSWDisplayPrompt", [&](Controller& controller) {
        const ScopedValue inPrompt(inPrompt_, true);
        controller.jswDisplayPrompt(promptType, totalPages);
    });
}

void DriverApi::postDlgMsg(void* message) {
    whileRunning("JSWPostDlgMsg",
                 [&](Controller& controller) { controller.jswPostDlgMsg(message); });
}

}  // namespace jsw
