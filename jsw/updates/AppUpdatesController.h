#pragma once

#include "PublicLib/win/Handles.h"
#include "jsw/settings/Settings.h"
#include "jsw/updates/UserSession.h"

#include <windows.h>

#include <cstdint>
#include <ctime>
#include <memory>
#include <string>

namespace jsw {

class MethodTrace;

/// Starts the updater program when a check is due, and switches to what it has installed. Failures
/// are logged and do not affect the job. Used only by the thread that begins or ends a job.
class AppUpdatesController {
  public:
    static std::shared_ptr<AppUpdatesController> instance();
    static void destroy();

    /// Seconds since 1970, as std::time counts them.
    using Clock = std::time_t (*)();

    explicit AppUpdatesController(Clock clock = [] { return std::time(nullptr); })
        : clock_(clock) {}

    // When to check, in AppUpdatesController.cpp.

    /// Starts the updater when a check is due. Does not wait for it.
    void checkForUpdates();
    bool isItTimeToCheckForUpdates();
    /// Stores today as the day of the last check.
    void resetLastUpdatesCheckTime();
    std::string formatCurrentDate(const std::tm& time);

    // How the updater is started, in UpdaterLaunch.cpp.

    /// With elevation, through the shell.
    void checkForUpdatesVista(const std::string& updaterPath);
    /// As the user at the console: this process may be a service.
    void checkForUpdatesXp(const std::string& updaterPath);
    /// The primary token of the user at the console. False, with the Win32 error, if there is none.
    /// Neither output may be null.
    [[nodiscard]] bool getSessionUserToken(KernelHandle* token, DWORD* error);
    /// The environment of the token's user. False, and logged, if there is none: the updater then
    /// starts with the environment of this process.
    bool createEnvironment(UserEnvironment& environment, HANDLE token);

    // What follows an update, in PostUpdateChanges.cpp.

    /// Switches to new modules and data, once.
    void performPostUpdateChangesIfRequired();
    /// Writes a new store's missing data and module folders. True if the data folder was missing
    /// and everything missing could be written; so false if only the module folder was missing, see
    /// "Fixed interfaces" in docs/architecture.md.
    bool setInitialPaths();
    std::string getInitialPath();
    void resetCachedDefaultBillboardSettings();

  private:
    /// Whether updates are on. False, and logged, if the setting cannot be read. whenOff: the line
    /// for the trace if updates are off.
    static bool isTurnedOn(const Settings& settings, MethodTrace& trace, const char* whenOff);
    void launch(const std::string& path, const std::string& name, MethodTrace& trace);
    void switchSoftware(const Settings& settings, MethodTrace& trace);
    void switchData(const Settings& settings, MethodTrace& trace);

    Clock clock_;
};

}  // namespace jsw
