#include "jsw/updates/AppUpdatesController.h"

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

bool toLocalTime(std::time_t time, std::tm& local) {
    if (localtime_s(&local, &time) == 0) return true;
    logLine(component::kUpdater, kLogError, "ERROR:  timeNow not valid");
    return false;
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

std::shared_ptr<AppUpdatesController> AppUpdatesController::instance() {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::instance: ");
    return singleton<AppUpdatesController>->instance([&] {
        trace.add("instantiating AppUpdatesController.");
        return std::make_shared<AppUpdatesController>();
    });
}

void AppUpdatesController::destroy() {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::destroy: ");
    singleton<AppUpdatesController>->destroy(
        [&] { trace.add("destroying AppUpdatesController."); });
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
        std::string folder = settings.textOf(setting::kDllPath);
        if (folder.empty()) folder = CurrentProcess::instance()->folder();
        launch(joinPath(folder, name), name, trace);
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

void AppUpdatesController::launch(const std::string& path, const std::string& name,
                                  MethodTrace& trace) {
    const OsVersion& version = OsVersion::instance();
    if (!version.isXpOrLater()) {
        trace.add("OS is not XP or greater. NO Updates available.");
        return;
    }
    refuseUnlessUpdater(path, name);
    if (version.isVersion6OrLater()) {
        checkForUpdatesVista(path);
    } else {
        checkForUpdatesXp(path);
    }
}

bool AppUpdatesController::isItTimeToCheckForUpdates() {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::isItTimeToCheckForUpdates: ");
    const std::time_t now = clock_();
    std::tm local{};
    if (!toLocalTime(now, local)) return false;

    const Settings settings;
    // If the value or the store is missing, today is the day of the last check.
    std::string lastCheck = formatCurrentDate(local);
    const std::string today = lastCheck;
    setting::Text stored = setting::kDateLastChecked;
    stored.defaultValue = today.c_str();
    const Read outcome = settings.readOrWriteDefault(stored, lastCheck);
    if (outcome == Read::refused) {
        logUnreadable(stored.name);
        return false;
    }
    if (outcome == Read::wrongType) lastCheck.clear();  // so a check is due, which corrects it
    trace.add("The last check for updates was performed on : ", lastCheck);
    std::uint32_t interval = setting::kUpdatesCheckFrequency.defaultValue;
    if (settings.readOrWriteDefault(setting::kUpdatesCheckFrequency, interval) == Read::refused) {
        logUnreadable(setting::kUpdatesCheckFrequency.name);
        return false;
    }
    trace.add("Interval between checks is : ", interval);

    const bool due = isCheckDue(lastCheck, interval, now, local);
    trace.add(due ? "Time interval has expired, check for updates"
                  : "It is still not time to check for updates");
    return due;
}

void AppUpdatesController::resetLastUpdatesCheckTime() {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::resetLastUpdatesCheckTime() ");
    std::tm local{};
    if (!toLocalTime(clock_(), local)) return;
    Settings().write(setting::kDateLastChecked, formatCurrentDate(local));
}

std::string AppUpdatesController::formatCurrentDate(const std::tm& time) {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::formatCurrentDate() ");
    return formatDate(time);
}

}  // namespace jsw
