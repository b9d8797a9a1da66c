#pragma once

#include "PublicLib/win/Handles.h"
#include "jsw/settings/Settings.h"
#include "jsw/updates/UserSession.h"

#include <windows.h>

#include <cstdint>
#include <ctime>
#include <memory>
#include <optional>
#include <string>

namespace jsw {

class MethodTrace;

/// Starts the updater program when it is time to, and takes into use what it has installed. Nothing
/// that goes wrong reaches the job: it is logged, and the job goes on. Used by the thread that
/// begins or ends a job.
class AppUpdatesController {
  public:
    static std::shared_ptr<AppUpdatesController> instance();
    static void destroy();

    /// Seconds since 1970, as std::time counts them.
    using Clock = std::time_t (*)();

    /// @param clock  null: the clock of the system
    explicit AppUpdatesController(Clock clock = nullptr);

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
    /// The primary token of the user at the console. False, with the Win32 error, when there is
    /// none; both outputs must be given.
    bool getSessionUserToken(KernelHandle* token, DWORD* error);
    /// The environment of the token's user. False, and logged, when there is none: the updater is
    /// started all the same, with the environment of this process.
    bool createEnvironment(UserEnvironment& environment, HANDLE token);

    // What follows an update, in PostUpdateChanges.cpp.

    /// Takes new modules and data into use, once.
    void performPostUpdateChangesIfRequired();
    /// Gives a fresh store its data and module folders. True when the data folder was missing and
    /// everything missing could be written, so false when only the module folder was missing.
    bool setInitialPaths();
    std::string getInitialPath();
    void resetCachedDefaultBillboardSettings();

  private:
    struct Moment;

    bool currentTime(Moment& moment) const;
    /// Not when the setting cannot be read, which is logged. What to add to the trace when it says
    /// that updates are off is given by the caller.
    static bool isTurnedOn(const Settings& settings, MethodTrace& trace, const char* whenOff);
    std::optional<std::string> lastCheckDate(const Settings& settings,
                                             const std::string& today) const;
    static std::string updaterFolder(const Settings& settings);
    void launch(const std::string& folder, const std::string& name, MethodTrace& trace);
    void switchSoftware(const Settings& settings, MethodTrace& trace);
    void switchData(const Settings& settings, MethodTrace& trace);

    Clock clock_;
};

}  // namespace jsw
