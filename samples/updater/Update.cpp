#include "samples/updater/Update.h"

#include <windows.h>

#include <shlobj.h>

#include <filesystem>

namespace jsw::sample {
namespace {

namespace fs = std::filesystem;

constexpr const char* kUpdater = "Settings\\Updater";
constexpr const char* kNewNames = "Settings\\FileNamesOfUpdatedFiles";
constexpr const char* kSoftwareFlag = "CompleteSoftwareUpdated";
constexpr const char* kDataFlag = "DataUpdated";
constexpr uint32_t kUpdated = 1;
constexpr uint32_t kDoNotChange = 2;

/** A file of a software update. */
struct UpdateFile {
    const char* source;     ///< in the folder of the updates
    const char* stem;       ///< the new name is stem-N with the source's extension
    const char* valueName;  ///< the setting with the new name
};

constexpr UpdateFile kFiles[] = {
    {"catalog.dll", "bcat", "Catalog"},
    {"rules.dll", "reng", "RulesEngine"},
    {"view.dll", "jswv", "View"},
    {"version.txt", "bbversion", "BillBoardVersionInfoFileName"},
};

/** The first free name: a module in use cannot be overwritten, so a new one needs a new name. */
std::string freeName(const fs::path& folder, const UpdateFile& file) {
    const std::string ending = fs::path(file.source).extension().string();
    for (unsigned number = 1;; ++number) {
        std::string name = std::string(file.stem) + "-" + std::to_string(number) + ending;
        if (!fs::exists(folder / name)) return name;
    }
}

void installFile(const fs::path& folder, const UpdateFile& file, const HostStore& store,
                 UpdateReport& report) {
    const std::string name = freeName(folder, file);
    std::error_code error;
    fs::copy_file(folder / "updates" / file.source, folder / name, error);
    if (error || !store.setText(kNewNames, file.valueName, name)) {
        report.good = false;
        report.lines.push_back(std::string("failed: ") + file.source + " " + error.message());
        return;
    }
    report.installed = true;
    report.lines.push_back(std::string("installed: ") + file.source + " as " + name);
}

bool isFrozen(const HostStore& store, const char* flag) {
    return store.number(kUpdater, flag, 0) == kDoNotChange;
}

/** Sets a flag to "updated", unless it is "do not change". */
void raise(const HostStore& store, const char* flag, UpdateReport& report) {
    const bool frozen = isFrozen(store, flag);
    if (!frozen && !store.setNumber(kUpdater, flag, kUpdated)) {
        report.good = false;
        report.lines.push_back(std::string("failed: ") + flag);
        return;
    }
    report.lines.push_back(std::string("flag: ") + flag + (frozen ? " stays 2" : " is 1"));
}

/** With the flag "do not change" the library would never use new modules. */
void installSoftware(const fs::path& folder, const HostStore& store, UpdateReport& report) {
    if (isFrozen(store, kSoftwareFlag)) {
        report.lines.push_back(std::string("no software: ") + kSoftwareFlag + " stays 2");
        return;
    }
    bool any = false;
    for (const UpdateFile& file : kFiles) {
        if (fs::is_regular_file(folder / "updates" / file.source)) {
            installFile(folder, file, store, report);
            any = true;
        }
    }
    if (any) raise(store, kSoftwareFlag, report);
}

/** The folder that the library derives from the store. */
fs::path dataFolder(const HostStore& store) {
    char common[MAX_PATH] = {};
    SHGetFolderPathA(nullptr, CSIDL_COMMON_APPDATA, nullptr, SHGFP_TYPE_CURRENT, common);
    return fs::path(common) / store.text(kUpdater, "DataUpdatesDirectoryName", "Job Status") /
           store.text("Settings\\", "DriverName", "");
}

void installData(const fs::path& folder, const HostStore& store, UpdateReport& report) {
    const fs::path source = folder / "updates" / "data";
    if (!fs::is_directory(source)) return;
    const fs::path target = dataFolder(store);
    std::error_code error;
    fs::create_directories(target, error);
    fs::copy(source, target, fs::copy_options::recursive | fs::copy_options::overwrite_existing,
             error);
    if (error) {
        report.good = false;
        report.lines.push_back("failed: data " + error.message());
        return;
    }
    report.installed = true;
    report.lines.push_back("installed: data in " + target.string());
    raise(store, kDataFlag, report);
}

}  // namespace

UpdateReport installUpdates(const std::string& folder, const HostStore& store) {
    UpdateReport report;
    if (!store.exists()) {
        report.good = false;
        report.lines.emplace_back("failed: the program to update has no settings");
        return report;
    }
    installSoftware(folder, store, report);
    installData(folder, store, report);
    if (report.lines.empty()) report.lines.emplace_back("nothing to install");
    return report;
}

}  // namespace jsw::sample
