#include "jsw/updates/AppUpdatesController.h"

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/errors/Exception.h"
#include "PublicLib/locks/Singleton.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/os/OsVersion.h"
#include "PublicLib/process/CurrentProcess.h"
#include "PublicLib/win/Paths.h"
#include "jsw/updates/InstalledFile.h"
#include "jsw/updates/UpdateSchedule.h"

namespace jsw {

namespace {

NeverDestroyed<Singleton<AppUpdatesController>> singleton;

std::time_t systemTime() {
    return std::time(nullptr);
}

std::time_t makeTime(std::tm* time) {
    return std::mktime(time);
}

/// A setting that cannot be read may switch checks off, so no check is made.
void logUnreadable(const char* name) {
    const DWORD error = GetLastError();
    logLine(component::kUpdater, kLogError, "ERROR - unable to read the setting ", name,
            ", error=", error);
}

/// Throws Exception if the program must not be started. The launch finds out whether it exists.
void refuseUnlessUpdater(const std::string& path, const std::string& name) {
    const auto refuse = [](const std::string& why) { throw Exception(why, 0); };
    if (name.empty()) refuse("the updater has no name");
    if (!isPlainFileName(name)) refuse("the updater's name is no plain file name: " + name);
    // The shell would open a folder in a window.
    if (isFolder(path)) refuse("the updater is a folder: " + path);
}

}  // namespace

/// One moment, as calendar time and as local time.
struct AppUpdatesController::Moment {
    std::time_t time;
    std::tm local;
};

std::shared_ptr<AppUpdatesController> AppUpdatesController::instance() {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::instance: ");
    return singleton->instance([&] {
        trace.add("instantiating AppUpdatesController.");
        return std::make_shared<AppUpdatesController>();
    });
}

void AppUpdatesController::destroy() {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::destroy: ");
    singleton->destroy([&] { trace.add("destroying AppUpdatesController."); });
}

AppUpdatesController::AppUpdatesController(Clock clock)
    : clock_(clock != nullptr ? clock : systemTime) {
}

void AppUpdatesController::checkForUpdates() {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::checkForUpdates() ");
    const Settings settings;
    if (!isTurnedOn(settings, trace, "The check for updates has been TURNED OFF!")) return;
    if (!isItTimeToCheckForUpdates()) {
        trace.add("It is not time to check for updates yet.");
        return;
    }
    trace.add("It it time to check for updates. Attempting to initiate the update process");
    // Before the launch, so that a launch that fails is not repeated at every job.
    resetLastUpdatesCheckTime();

    std::string name;
    if (settings.readOrWriteDefault(setting::kUpdaterExecutable, name) != Read::found) {
        trace.add("FAILED to retrieve the BillBoard updater executable name!");
        return;
    }
    try {
        launch(updaterFolder(settings), name, trace);
    } catch (const Exception& error) {
        logLine(component::kUpdater, kLogError, "ERROR: Updater FAILED to Launch: ", error.text());
    }
}

bool AppUpdatesController::isTurnedOn(const Settings& settings, MethodTrace& trace,
                                      const char* whenOff) {
    const std::optional<bool> on = settings.isUpdateCheckOn();
    if (!on) {
        logUnreadable(setting::kCheckForUpdates.name);
    } else if (!*on) {
        trace.add(whenOff);
    }
    return on.value_or(false);
}

std::string AppUpdatesController::updaterFolder(const Settings& settings) {
    std::string folder;
    settings.read(setting::kDllPath, folder);
    return folder.empty() ? CurrentProcess::instance()->folder() : folder;
}

void AppUpdatesController::launch(const std::string& folder, const std::string& name,
                                  MethodTrace& trace) {
    const OsVersion& version = OsVersion::instance();
    if (!version.isXpOrLater()) {
        trace.add("OS is not XP or greater. NO Updates available.");
        return;
    }
    const std::string path = joinPath(folder, name);
    refuseUnlessUpdater(path, name);
    if (version.isVersion6OrLater()) {
        checkForUpdatesVista(path);
    } else {
        checkForUpdatesXp(path);
    }
}

bool AppUpdatesController::currentTime(Moment& moment) const {
    moment = {clock_(), {}};
    if (localtime_s(&moment.local, &moment.time) == 0) return true;
    logLine(component::kUpdater, kLogError, "ERROR:  timeNow not valid");
    return false;
}

bool AppUpdatesController::isItTimeToCheckForUpdates() {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::isItTimeToCheckForUpdates: ");
    Moment now{};
    if (!currentTime(now)) return false;

    const Settings settings;
    const auto lastCheck = lastCheckDate(settings, formatCurrentDate(now.local));
    if (!lastCheck) return false;
    trace.add("The last check for updates was performed on : ", *lastCheck);
    std::uint32_t interval = setting::kUpdatesCheckFrequency.defaultValue;
    if (settings.readOrWriteDefault(setting::kUpdatesCheckFrequency, interval) == Read::refused) {
        logUnreadable(setting::kUpdatesCheckFrequency.name);
        return false;
    }
    trace.add("Interval between checks is : ", interval);

    const bool due = isCheckDue(*lastCheck, interval, now.time, now.local, makeTime);
    trace.add(due ? "Time interval has expired, check for updates"
                  : "It is still not time to check for updates");
    return due;
}

/// Today's date if the value or the store is missing. Empty for a value of the wrong type, so that
/// a check is due, which corrects it. Nothing, and logged, if the value cannot be read.
std::optional<std::string> AppUpdatesController::lastCheckDate(const Settings& settings,
                                                               const std::string& today) const {
    setting::Text stored = setting::kDateLastChecked;
    stored.defaultValue = today.c_str();
    std::string date;
    switch (settings.readOrWriteDefault(stored, date)) {
        case Read::found:
        case Read::wrongType:
            return date;
        case Read::missing:
            return today;
        case Read::refused:
            break;
    }
    logUnreadable(stored.name);
    return std::nullopt;
}

void AppUpdatesController::resetLastUpdatesCheckTime() {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::resetLastUpdatesCheckTime() ");
    Moment now{};
    if (!currentTime(now)) return;
    Settings().write(setting::kDateLastChecked, formatCurrentDate(now.local));
}

std::string AppUpdatesController::formatCurrentDate(const std::tm& time) {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::formatCurrentDate() ");
    return formatDate(time);
}

}  // namespace jsw
