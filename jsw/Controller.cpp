// The life of a job: see Controller.h.

#include "jsw/Controller.h"

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/errors/Exception.h"
#include "PublicLib/locks/Singleton.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/os/OsVersion.h"
#include "jsw/StatusCallback.h"
#include "jsw/modules/LegacyJswGui.h"
#include "jsw/settings/Settings.h"

namespace jsw {

namespace {

NeverDestroyed<Singleton<Controller>> singleton;

const LoggerComponent& log() {
    return component::kJsw;
}

}  // namespace

std::shared_ptr<Controller> Controller::instance() {
    MethodTrace trace(log(), "Controller::instance: ");
    return singleton->instance([&] {
        trace.add("instantiating Controller.");
        return std::make_shared<Controller>();
    });
}

void Controller::destroy() {
    MethodTrace trace(log(), "Controller::destroy: ");
    singleton->destroy([&] { trace.add("destroying Controller."); });
}

Controller::Controller() {
    MethodTrace trace(log(), "Controller::Controller: ");
    view_ = BillboardView::instance();
    view_->attach(this);
    setDataPath(determineDataPath());
    defaultBillboardId_ = determineInitialBillboard();
    ids_.setDisplayed(defaultBillboardId_);
}

Controller::~Controller() {
    MethodTrace trace(log(), "Controller::~Controller: ");
    trace.add("Stop observing the view.");
    view_->detach(this);
}

std::string Controller::determineDataPath() const {
    MethodTrace trace(log(), "Controller::determineDataPath: ");
    std::string path;
    if (!Settings().read(setting::kDataPath, path) || path.empty()) {
        trace.add(
            "DataPath NOT set in registry. Using the PrinterDriver directory for the data path.");
        path = OsVersion::instance().printerDriverFolderByMajorVersion();
    }
    trace.add(path);
    return path;
}

void Controller::setDataPath(const std::string& path) {
    dataPath_ = path;
    if (!dataPath_.empty() && dataPath_.back() == '\\') dataPath_.pop_back();
}

std::string Controller::determineInitialBillboard() const {
    MethodTrace trace(log(), "Controller::determineInitialBillboard: ");
    std::string id = setting::kDefaultBillboard.defaultValue;
    if (Settings().read(setting::kDefaultBillboard, id)) {
        trace.add("Using registry override for default billboard ID.", id);
    }
    return id;
}

bool Controller::jswInit(const Job& job) {
    MethodTrace trace(log(), "Controller::jswInit: ");
    const auto number = [](std::uint32_t value) { return static_cast<std::int32_t>(value); };
    logLine(log(), kLogTrace, "Params:friendlyName=", job.friendlyName, " jobname=", job.jobName,
            " jobType=", number(job.jobType), " currentPage=", number(job.currentPage),
            " totalPages=", number(job.totalPages), " currentCopy=", number(job.currentCopy),
            " totalCopies=", number(job.totalCopies), " portType=", number(job.portType),
            " secondsRemaining=", number(job.secondsRemaining));
    logLine(log(), kLogModuleCall, ">>> Controller::jswInit: ");
    stopRules();  // an earlier job that was never terminated
    stop_ = false;
    friendlyName_ = job.friendlyName;
    if (!isMsXmlValid()) return false;

    const BillboardData billboard = getDefaultBillboardData();
    const ViewJob viewJob{job.friendlyName, job.jobName,     job.jobType,        job.currentPage,
                          job.totalPages,   job.currentCopy, job.totalCopies,    &job.inkInfo,
                          job.portType,     dataPath_,       billboard.fileName, billboard.navigate,
                          billboard.restore};
    if (!view_->jswInit(viewJob)) return false;
    inkInfo_ = job.inkInfo;
    jobPrinterName_ = job.friendlyName;
    jobName_ = job.jobName;
    totalPages_ = job.totalPages;
    totalCopies_ = job.totalCopies;
    return startRules();
}

bool Controller::startRules() {
    rulesRunnable_ = std::make_unique<RunnableMethod<Controller>>(this, &Controller::ProcessRules);
    rulesThread_ = std::make_unique<Thread>(rulesRunnable_.get());
    try {
        rulesThread_->launch();
    } catch (const Win32Exception& error) {
        logLine(log(), kLogError, "ERROR: unable to create rules processing thread.");
        logLine(log(), kLogError, error.text());
        return false;
    }
    return true;
}

void Controller::stopRules() {
    if (rulesThread_) {
        stop_ = true;
        rulesThread_.reset();  // waits for the thread
    }
    rulesRunnable_.reset();
}

void Controller::jswTerminate() {
    MethodTrace trace(log(), "Controller::jswTerminate: ");
    // The closing marker stands at the beginning: scripts that read the log expect it there.
    logLine(log(), kLogModuleCall, "<<< Controller::jswTerminate: ");
    stopRules();
    view_->jswTerminate();
}

void Controller::jswUpdateInfo(std::uint32_t value1, std::uint32_t value2, std::uint32_t value3,
                               std::uint32_t /*value4*/, std::uint32_t /*value5*/, void* data) {
    MethodTrace trace(log(), "Controller::jswUpdateInfo: ");
    view_->jswUpdateInfo(value1, value2, value3, data);
}

void Controller::jswDisplayPrompt(std::uint32_t promptType, std::uint32_t totalPages) {
    MethodTrace trace(log(), "Controller::jswDisplayPrompt: ");
    trace.add("params: promptType=", promptType, "totalPages=", totalPages);
    try {
        if (!legacyGui_) legacyGui_ = std::make_unique<LegacyJswGui>();
    } catch (const std::exception&) {
        logLine(log(), kLogError, "ERROR - unable to create LegacyJswGui");
        return;
    }
    try {
        runLegacyPrompt(promptType, totalPages);
    } catch (...) {
        legacyGui_.reset();
        throw;
    }
    legacyGui_.reset();
}

void Controller::runLegacyPrompt(std::uint32_t promptType, std::uint32_t totalPages) {
    if (!legacyGui_->jswInitEx(friendlyName_)) {
        logLine(log(), kLogError, "ERROR - unable to initialize old Jsw GUI.");
        return;
    }
    legacyGui_->jswDisplayPrompt(promptType, totalPages);
    legacyGui_->jswTerminate();
}

void Controller::jswPostDlgMsg(void* message) {
    MethodTrace trace(log(), "Controller::jswPostDlgMsg: ");
    if (!legacyGui_) return;
    trace.add("calling old JSW GUI.");
    legacyGui_->jswPostDlgMsg(message);
}

void Controller::update(Subject* subject) {
    MethodTrace trace(log(), "Controller::update: ");
    const auto* view = dynamic_cast<BillboardView*>(subject);
    if (view == nullptr) {
        trace.add("Updated called by unknown object");
        return;
    }
    const auto status = static_cast<std::uint32_t>(view->jswEvent());
    stop_ = true;
    switch (status) {
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
            trace.add("unknown status(=", status, ") in callback");
            break;
    }
    if (JswStatusCallback callback = statusCallback()) callback(status);
}

}  // namespace jsw
