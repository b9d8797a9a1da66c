#include "jsw/SingletonMgr.h"

#include "PublicLib/errors/Exception.h"
#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/os/CurrentProcess.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/printer/Printer.h"
#include "jsw/Controller.h"
#include "jsw/FirstRun.h"
#include "jsw/History.h"
#include "jsw/modules/BillboardView.h"
#include "jsw/modules/Catalog.h"
#include "jsw/updates/AppUpdatesController.h"

#include <exception>

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

void build() {
    // A callback that came late in the job before may have left an object behind.
    destroyJobObjects();
    Localize::createInstance(nullptr);
    BasicLogger::createInstance(kLogMask);
    installStoreIfMissing();
    logMarker(">>> SingletonMgr::SingletonMgr: ");
    AppUpdatesController::instance()->performPostUpdateChangesIfRequired();
    logBuilt("AppUpdatesController");
    BillboardView::instance();
    logBuilt("BillboardView");
    Catalog::instance();
    logBuilt("Catalog");
    const auto controller = Controller::instance();
    logBuilt("Controller");
    History::instance();
    logBuilt("History");
    CurrentProcess::instance();
    logBuilt("CurrentProcess");
    BillboardView::connectCallbacks(controller);
    logMarker("<<< SingletonMgr::SingletonMgr");
}

void checkForUpdates() {
    try {
        AppUpdatesController::instance()->checkForUpdates();
    } catch (const Exception& error) {
        logLine(component::kUpdater, kLogError, "ERROR - checkForUpdates: ", error.text());
    } catch (const std::exception& error) {
        logLine(component::kUpdater, kLogError, "ERROR - checkForUpdates: ", error.what());
    }
    AppUpdatesController::destroy();
}

void endLogAndNames() {
    BasicLogger::destroyInstance();
    Localize::destroy();
}

}  // namespace

SingletonMgr::SingletonMgr() {
    try {
        build();
    } catch (const std::exception& error) {
        logLine(component::kJsw, kLogError, "ERROR - SingletonMgr: ", error.what());
        BillboardView::disconnectCallbacks();
        destroyJobObjects();
        AppUpdatesController::destroy();
        endLogAndNames();
        throw;
    }
}

SingletonMgr::~SingletonMgr() {
    BillboardView::disconnectCallbacks();
    logMarker(">>> SingletonMgr::~SingletonMgr: ");
    destroyJobObjects();
    checkForUpdates();
    CurrentProcess::destroy();  // the update check may have asked for it again
    logMarker("<<< SingletonMgr::~SingletonMgr: ");
    endLogAndNames();
}

}  // namespace jsw
