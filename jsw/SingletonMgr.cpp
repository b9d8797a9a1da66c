#include "jsw/SingletonMgr.h"

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

/// In the order of teardown; each one that does not exist is passed over.
void destroyJobObjects() {
    CurrentProcess::destroy();
    Printer::destroy();
    History::destroy();
    Controller::destroy();
    Catalog::destroy();
    BillboardView::destroy();
}

/// The folders that an installed store still lacks belong to its first run.
void setUpStore() {
    FirstRun firstRun;
    firstRun.installStoreIfMissing();
    logMarker(">>> SingletonMgr::SingletonMgr: ");
    AppUpdatesController::instance()->performPostUpdateChangesIfRequired();
}

void build() {
    destroyJobObjects();  // that a callback, late in the job before, may have left behind
    Localize::createInstance(nullptr);
    provideSettings();
    BasicLogger::createInstance(kLogMask);
    setUpStore();
    logBuilt("AppUpdatesController");
    BillboardView::instance();
    logBuilt("BillboardView");
    Catalog::instance();
    logBuilt("Catalog");
    Controller::instance();
    logBuilt("Controller");
    History::instance();
    logBuilt("History");
    CurrentProcess::instance();
    logBuilt("CurrentProcess");
    logMarker("<<< SingletonMgr::SingletonMgr");
}

void endLogAndNames() {
    BasicLogger::destroyInstance();
    Localize::destroy();
}

/// After the log has ended: what a late callback, or the update check, has asked for once more.
void destroyStragglers() {
    destroyJobObjects();
    AppUpdatesController::destroy();
}

}  // namespace

SingletonMgr::SingletonMgr() {
    try {
        build();
    } catch (...) {
        reportException(component::kJsw, "SingletonMgr::SingletonMgr");
        destroyJobObjects();
        endLogAndNames();
        destroyStragglers();
        throw;
    }
}

SingletonMgr::~SingletonMgr() {
    runGuarded(component::kJsw, "SingletonMgr::~SingletonMgr", [] {
        logMarker(">>> SingletonMgr::~SingletonMgr: ");
        destroyJobObjects();
        // Last, when the window is gone: the updater may replace the modules.
        runGuarded(component::kUpdater, "AppUpdatesController::checkForUpdates",
                   [] { AppUpdatesController::instance()->checkForUpdates(); });
        AppUpdatesController::destroy();
        logMarker("<<< SingletonMgr::~SingletonMgr: ");
    });
    endLogAndNames();
    destroyStragglers();
}

}  // namespace jsw
