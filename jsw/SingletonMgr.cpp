#include "jsw/SingletonMgr.h"

#include "PublicLib/locks/Singleton.h"
#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/logging/Guard.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/printer/Printer.h"
#include "PublicLib/process/CurrentProcess.h"
#include "jsw/Controller.h"
#include "jsw/FirstRun.h"
#include "jsw/History.h"
#include "jsw/modules/BillboardView.h"
#include "jsw/modules/Catalog.h"
#include "jsw/settings/Settings.h"
#include "jsw/updates/AppUpdatesController.h"

namespace jsw {

namespace {

constexpr std::uint32_t kLogMask = 15;

void logMarker(const char* text) {
    logLine(component::kJsw, kLogModuleCall, text);
}

void logBuilt(const char* name) {
    logLine(component::kJsw, kLogModuleCall, "   >>> SingletonMgr::SingletonMgr ", name,
            "::instance() <<<");
}

template <class T>
void buildNext(const char* name) {
    T::instance();
    logBuilt(name);
}

/// In the order of teardown; skips those that do not exist. A late callback creates none that
/// stays.
void destroyJobObjects() {
    singletonsStay = false;
    CurrentProcess::destroy();
    Printer::destroy();
    History::destroy();
    Controller::destroy();
    Catalog::destroy();
    BillboardView::destroy();
}

/// The first run also sets the folders that an installed store lacks.
void setUpStore() {
    FirstRun firstRun;
    firstRun.installStoreIfMissing();
    logMarker(">>> SingletonMgr::SingletonMgr: ");
    AppUpdatesController::instance()->performPostUpdateChangesIfRequired();
}

void build() {
    singletonsStay = true;
    Localize::createInstance(nullptr);
    provideSettings();
    BasicLogger::createInstance(kLogMask);
    setUpStore();
    logBuilt("AppUpdatesController");
    buildNext<BillboardView>("BillboardView");
    buildNext<Catalog>("Catalog");
    buildNext<Controller>("Controller");
    buildNext<History>("History");
    buildNext<CurrentProcess>("CurrentProcess");
    logMarker("<<< SingletonMgr::SingletonMgr");
}

void endLogAndNames() {
    BasicLogger::destroyInstance();
    Localize::destroy();
}

}  // namespace

SingletonMgr::SingletonMgr() {
    try {
        build();
    } catch (...) {
        reportException(component::kJsw, "SingletonMgr::SingletonMgr");
        destroyJobObjects();
        AppUpdatesController::destroy();
        endLogAndNames();
        throw;
    }
}

SingletonMgr::~SingletonMgr() {
    runGuarded(component::kJsw, "SingletonMgr::~SingletonMgr", [] {
        logMarker(">>> SingletonMgr::~SingletonMgr: ");
        destroyJobObjects();
        // Last, after the window has closed: the updater may replace the modules.
        runGuarded(component::kUpdater, "AppUpdatesController::checkForUpdates",
                   [] { AppUpdatesController::instance()->checkForUpdates(); });
        AppUpdatesController::destroy();
        logMarker("<<< SingletonMgr::~SingletonMgr: ");
    });
    endLogAndNames();
}

}  // namespace jsw
