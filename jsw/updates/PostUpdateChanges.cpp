#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "jsw/updates/AppUpdatesController.h"
#include "jsw/updates/InstalledFile.h"

#include <windows.h>

namespace jsw {

namespace {

/// A file that the updater replaces by a file with a new name.
struct UpdatedFile {
    const char* what;            ///< in the log
    const setting::Text* inUse;  ///< holds the name in use; the new one has the same value name
};

constexpr UpdatedFile kUpdatedFiles[] = {
    {"Catalog Dll", &setting::kCatalogModule},
    {"Rules Engine Dll", &setting::kRulesEngineModule},
    {"View Dll", &setting::kViewModule},
    {"BillBoard Version", &setting::kBillBoardVersionFile},
};

/// Returns written; if false, logs it.
bool noteWritten(const char* name, bool written) {
    if (!written) {
        const DWORD error = GetLastError();
        logLine(component::kUpdater, kLogError, "ERROR - unable to write the setting ", name,
                ", error=", error);
    }
    return written;
}

void setFlag(const Settings& settings, const setting::Number& flag, UpdateFlag state) {
    noteWritten(flag.name, settings.setFlag(flag, state));
}

/// Stores the file's new name as the name in use. False, with the old name kept, if the file does
/// not exist or the name cannot be stored.
bool switchFile(const Settings& settings, const UpdatedFile& file, const std::string& folder,
                MethodTrace& trace) {
    std::string name;
    settings.getValue(setting::kUpdatedFilesKey, file.inUse->name, name);
    if (!isFileIn(folder, name)) {
        trace.add(file.what,
                  " file was NOT updated. File does not exist : ", joinPath(folder, name));
        return false;
    }
    trace.add(file.what, " file was updated, updating file name in setting to : ", name);
    return noteWritten(file.inUse->name, settings.write(*file.inUse, name));
}

/// Stores the folder of the new data as the folder in use. False, with the old one kept, if the
/// catalog is missing or the folder cannot be stored.
bool switchDataPath(const Settings& settings, const std::string& folder, const std::string& catalog,
                    MethodTrace& trace) {
    if (!isFileIn(folder, catalog)) {
        trace.add("Catalog file does NOT exist : ", catalog);
        return false;
    }
    trace.add("Data was updated successfully, file exists : ", catalog);
    trace.add("Updating the data path to : ", folder);
    return noteWritten(setting::kDataPath.name, settings.write(setting::kDataPath, folder));
}

}  // namespace

bool AppUpdatesController::setInitialPaths() {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::setInitialPaths() ");
    const Settings settings;
    const bool dataMissing = settings.textOf(setting::kDataPath).empty();
    if (!dataMissing) trace.add("DataPath was already set.");
    const bool dllMissing = settings.textOf(setting::kDllPath).empty();
    if (!dllMissing) trace.add("DllPath was already set.");

    bool result = false;
    if (dataMissing || dllMissing) {
        const std::string path = getInitialPath();
        if (dataMissing) {
            trace.add("Setting initial data path=", path, ".");
            result = settings.write(setting::kDataPath, path);
        }
        if (dllMissing) {
            trace.add("Setting initial dll path=", path, ".");
            result = settings.write(setting::kDllPath, path) && result;
        }
    }
    trace.setResult(concat(result));
    return result;
}

std::string AppUpdatesController::getInitialPath() {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::getInitialPath() ");
    return joinPath(programFilesFolder(), Settings().textOf(setting::kInitialPath));
}

void AppUpdatesController::performPostUpdateChangesIfRequired() {
    MethodTrace trace(component::kUpdater,
                      "AppUpdatesController::performPostUpdateChangesIfRequired() ");
    if (setInitialPaths()) {
        trace.add("Initial run of the JSW. An update could not have been performed yet.");
        return;
    }
    const Settings settings;
    if (!isTurnedOn(settings, trace,
                    "The check for updates has been TURNED OFF. No updates could be performed")) {
        return;
    }
    if (settings.isUpdated(setting::kCompleteSoftwareUpdated)) {
        switchSoftware(settings, trace);
    } else if (!settings.isUpdated(setting::kDataUpdated)) {
        trace.add("The updated flags are either turned off or are set to do not change.");
        return;
    }
    switchData(settings, trace);
}

void AppUpdatesController::switchSoftware(const Settings& settings, MethodTrace& trace) {
    // A software package contains its data.
    setFlag(settings, setting::kDataUpdated, UpdateFlag::updated);
    // If setInitialPaths() could not write a folder, the names alone would name files in the root
    // of a drive. The flag stays for the next job.
    const std::string folder = settings.textOf(setting::kDllPath);
    if (folder.empty()) {
        logLine(component::kUpdater, kLogError,
                "ERROR - the folder of the updated modules is unknown");
        return;
    }
    bool complete = true;
    for (const UpdatedFile& file : kUpdatedFiles) {
        complete = switchFile(settings, file, folder, trace) && complete;
    }
    trace.add(complete ? "All the binaries have been updated at least once, setting the "
                         "CompleteUpdateFlag to DO NOT CHANGE"
                       : "All the binaries have NOT been updated atleast once, "
                         "resetting the CompleteUpdateFlag");
    setFlag(settings, setting::kCompleteSoftwareUpdated,
            complete ? UpdateFlag::doNotChange : UpdateFlag::none);
}

void AppUpdatesController::switchData(const Settings& settings, MethodTrace& trace) {
    if (!settings.isUpdated(setting::kDataUpdated)) {
        trace.add("The data updated flags already set to DO NOT CHANGE");
        resetCachedDefaultBillboardSettings();
        return;
    }
    trace.add("The data updated flags was set. A data update was performed for the first time");
    const std::string catalog = settings.textOf(setting::kCatalogFilename);
    const std::string folder = settings.dataUpdatesFolder();
    if (folder.empty()) {  // the flag stays for the next job
        logLine(component::kUpdater, kLogError,
                "ERROR - the folder of the updated data is unknown");
        return;
    }
    if (!switchDataPath(settings, folder, catalog, trace)) {
        trace.add("Data update was not installed successfully, resetting Data Update flag");
        setFlag(settings, setting::kDataUpdated, UpdateFlag::none);
        return;
    }
    trace.add("Updating the Data Updated flag to DO NOT CHANGE");
    setFlag(settings, setting::kDataUpdated, UpdateFlag::doNotChange);
    resetCachedDefaultBillboardSettings();
}

void AppUpdatesController::resetCachedDefaultBillboardSettings() {
    MethodTrace trace(component::kUpdater,
                      "AppUpdatesController::resetCachedDefaultBillboardSettings() ");
    Settings().write(setting::kDefaultBillboardFile, "");
}

}  // namespace jsw
