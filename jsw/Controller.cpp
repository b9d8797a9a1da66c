// The life of a job: see Controller.h.

#include "jsw/Controller.h"

#include "PublicLib/ScopedValue.h"
#include "PublicLib/calls/NoWaiting.h"
#include "PublicLib/errors/Exception.h"
#include "PublicLib/locks/Singleton.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/os/OsVersion.h"
#include "jsw/BillboardChoice.h"
#include "jsw/XmlParserLibrary.h"
#include "jsw/modules/LegacyJswGui.h"
#include "jsw/settings/Settings.h"

#include <windows.h>

namespace jsw {

std::shared_ptr<Controller> Controller::instance() {
    MethodTrace trace(component::kJsw, "Controller::instance: ");
    return singleton<Controller>->instance([&] {
        trace.add("instantiating Controller.");
        return std::make_shared<Controller>();
    });
}

void Controller::destroy() {
    MethodTrace trace(component::kJsw, "Controller::destroy: ");
    singleton<Controller>->destroy([&] { trace.add("destroying Controller."); });
}

Controller::Controller() {
    MethodTrace trace(component::kJsw, "Controller::Controller: ");
    view_ = BillboardView::instance();
    view_->attach(this);
    setDataPath(determineDataPath());
    defaultBillboardId_ = determineInitialBillboard();
    texts_.set(&JobText::displayedId, defaultBillboardId_);
}

Controller::~Controller() {
    MethodTrace trace(component::kJsw, "Controller::~Controller: ");
    stopRules();
    trace.add("Stop observing the view.");
    view_->detach(this);
}

std::string Controller::determineDataPath() const {
    MethodTrace trace(component::kJsw, "Controller::determineDataPath: ");
    std::string path;
    Settings().read(setting::kDataPath, path);
    if (path.empty()) {
        trace.add(
            "DataPath NOT set in registry. Using the PrinterDriver directory for the data path.");
        path = OsVersion::instance().printerDriverFolderByMajorVersion();
        if (path.empty()) {
            logLine(component::kJsw, kLogError,
                    "ERROR - The printer driver directory is unknown, error=", GetLastError());
        }
    }
    trace.add(path);
    return path;
}

void Controller::setDataPath(const std::string& path) {
    dataPath_ = path;
    if (!dataPath_.empty() && dataPath_.back() == '\\') dataPath_.pop_back();
}

std::string Controller::determineInitialBillboard() const {
    MethodTrace trace(component::kJsw, "Controller::determineInitialBillboard: ");
    std::string id = setting::kDefaultBillboard.defaultValue;
    if (Settings().read(setting::kDefaultBillboard, id) == Read::found) {
        trace.add("Using registry override for default billboard ID.");
        trace.add(id);
    }
    return id;
}

bool Controller::jswInit(const Job& job) {
    MethodTrace trace(component::kJsw, "Controller::jswInit: ");
    logLine(component::kJsw, kLogTrace, "Params:friendlyName=", job.friendlyName,
            " jobname=", job.jobName, " jobType=", asSigned(job.jobType),
            " currentPage=", asSigned(job.currentPage), " totalPages=", asSigned(job.totalPages),
            " currentCopy=", asSigned(job.currentCopy), " totalCopies=", asSigned(job.totalCopies),
            " portType=", asSigned(job.portType),
            " secondsRemaining=", asSigned(job.secondsRemaining));
    logLine(component::kJsw, kLogModuleCall, ">>> Controller::jswInit: ");
    stopRules();  // an earlier job that was never terminated
    stop_ = false;
    // This object may serve several jobs: if the previous one was ended inside a prompt or not at
    // all.
    texts_.reset({.friendlyName = job.friendlyName, .displayedId = defaultBillboardId_});
    if (!isMsXmlValid()) return false;

    const BillboardData billboard = getDefaultBillboardData();
    const FirstBillboard first{dataPath_, billboard.fileName, billboard.navigate,
                               billboard.restore};
    if (!view_->jswInit(job, first)) return false;
    job_ = job;
    job_.inkInfo = &job_.ink;  // the driver's record is valid only during the call
    return startRules();
}

bool Controller::startRules() {
    rulesRunnable_ = std::make_unique<RunnableMethod<Controller>>(this, &Controller::ProcessRules);
    rulesThread_ = std::make_unique<Thread>(rulesRunnable_.get());
    try {
        rulesThread_->launch();
    } catch (const Win32Exception& error) {
        logLine(component::kJsw, kLogError, "ERROR: unable to create rules processing thread.");
        logLine(component::kJsw, kLogError, error.text());
        rulesThread_.reset();
        return false;
    }
    return true;
}

bool Controller::isChoosing() const {
    return rulesThread_ && !rulesThread_->wait(0);
}

void Controller::ProcessRules() {
    const NoWaiting onTheRulesThread;
    chooseBillboard(job_, *this, *view_, texts_, stop_);
}

void Controller::stopRules() {
    if (rulesThread_) {
        stop_ = true;
        rulesThread_.reset();  // waits for the thread
    }
    rulesRunnable_.reset();
}

void Controller::jswTerminate() {
    MethodTrace trace(component::kJsw, "Controller::jswTerminate: ");
    // The closing marker comes first, see "Fixed interfaces" in docs/architecture.md.
    logLine(component::kJsw, kLogModuleCall, "<<< Controller::jswTerminate: ");
    stopRules();
    view_->jswTerminate();
}

void Controller::jswUpdateInfo(std::uint32_t value1, std::uint32_t value2, std::uint32_t value3,
                               std::uint32_t /*value4*/, std::uint32_t /*value5*/, void* data) {
    MethodTrace trace(component::kJsw, "Controller::jswUpdateInfo: ");
    view_->jswUpdateInfo(value1, value2, value3, data);
}

void Controller::jswDisplayPrompt(std::uint32_t promptType, std::uint32_t totalPages) {
    MethodTrace trace(component::kJsw, "Controller::jswDisplayPrompt: ");
    trace.add("params: promptType=", promptType, "totalPages=", totalPages);
    std::shared_ptr<LegacyJswGui> gui = legacyGui_;  // a prompt inside a prompt shares its window
    try {
        if (!gui) gui = std::make_shared<LegacyJswGui>();
    } catch (const std::exception&) {
        logLine(component::kJsw, kLogError, "ERROR - unable to create LegacyJswGui");
        return;
    }
    const ScopedValue up(legacyGui_, gui);
    if (!gui->jswInitEx(texts_.get(&JobText::friendlyName))) {
        logLine(component::kJsw, kLogError, "ERROR - unable to initialize old Jsw GUI.");
        return;
    }
    gui->jswDisplayPrompt(promptType, totalPages);
    gui->jswTerminate();
}

void Controller::jswPostDlgMsg(void* message) {
    MethodTrace trace(component::kJsw, "Controller::jswPostDlgMsg: ");
    if (!legacyGui_) return;
    trace.add("calling old JSW GUI.");
    legacyGui_->jswPostDlgMsg(message);
}

void Controller::update(Subject* subject, const WindowEvent& event) {
    MethodTrace trace(component::kJsw, "Controller::update: ");
    if (subject == nullptr) {
        trace.add("Updated called by unknown object");
        return;
    }
    stop_ = true;
    switch (event.status) {
        case JSW_STATUS_GUI_CLOSED:
            trace.add("JSW GUI closed");
            return;  // the driver is not told that the window was closed
        case JSW_STATUS_JOB_CLOSED:
            trace.add("JOB closed");
            break;
        case JSW_STATUS_JOB_CANCELLED:
            trace.add("job cancelled");
            break;
        default:
            trace.add("unknown status(=", event.status, ") in callback");
            break;
    }
    event.session.report(event.status);
}

}  // namespace jsw
