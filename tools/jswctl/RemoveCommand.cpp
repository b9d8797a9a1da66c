#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/settings/Settings.h"
#include "tools/jswctl/Command.h"
#include "tools/jswctl/Host.h"

#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <vector>

namespace jsw::ctl {

namespace {

struct RemoveOptions {
    std::string host;
    std::string backup;
    bool noBackup = false;
    bool dryRun = false;
};

/// What is removed: the store, or the whole product line with its last store.
std::string whatGoes(const Settings& settings) {
    std::uint32_t deleteAll = 0;
    std::vector<std::string> stores;
    settings.read(setting::kDeleteStoreOnUninstall, deleteAll);
    const auto names = Localize::getInstance();
    if (const auto local = RegistryKey::openExisting(joinPath(names->getJswRoot(), "Local"))) {
        local->getChildrenNames(stores, Settings::kMaxNames);
    }
    return deleteAll != 0 && stores.size() <= 1 ? "HKLM\\" + names->getProductLineRoot()
                                                : storeName();
}

/// "qldeJSW-20261122-101500.reg" beside the log, because a start-up script may have any current
/// folder.
std::string backupName() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    char time[32];
    std::snprintf(time, sizeof time, "%04u%02u%02u-%02u%02u%02u", now.wYear, now.wMonth, now.wDay,
                  now.wHour, now.wMinute, now.wSecond);
    const std::string log = BasicLogger::filePath();
    return concat(log.substr(0, log.rfind('.')), "-", time, ".reg");
}

/// Writes a key and everything below it to a file, with Windows' own tool.
void backUp(const std::string& key, const std::string& file) {
    std::string command = concat("reg.exe export \"", key, "\" \"", file, "\" /y /reg:64");
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    DWORD code = 1;
    if (CreateProcessA(joinPath(systemFolder(), "reg.exe").c_str(), command.data(), nullptr,
                       nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr, &startup,
                       &info) != FALSE) {
        const KernelHandle process(info.hProcess);
        const KernelHandle thread(info.hThread);
        WaitForSingleObject(process.get(), INFINITE);
        GetExitCodeProcess(process.get(), &code);
    }
    if (code != 0 || GetFileAttributesA(file.c_str()) == INVALID_FILE_ATTRIBUTES) {
        throw std::runtime_error(concat("cannot write the backup ", file,
                                        "; nothing was removed. --no-backup skips the backup"));
    }
    std::printf("Wrote %s; 'reg import' restores it.\n", file.c_str());
}

int remove(const RemoveOptions& options) {
    nameHost(options.host);
    const Settings settings;
    if (!settings.isValid()) {
        const DWORD error = GetLastError();
        if (error != ERROR_FILE_NOT_FOUND) {
            throw std::runtime_error("cannot open " + storeName() + ": " + errorText(error));
        }
        std::printf("There is no %s; nothing was removed.\n", storeName().c_str());
        return kWell;
    }
    const std::string goes = whatGoes(settings);
    if (options.dryRun) {
        std::printf("Would remove %s.\n", goes.c_str());
        return kWell;
    }
    if (!options.noBackup) {
        backUp(goes, inFull(options.backup.empty() ? backupName() : options.backup));
    }
    if (!settings.removeStore()) {
        throw std::runtime_error("cannot remove all of " + goes + ": " + errorText(GetLastError()));
    }
    std::printf("Removed %s.\n", goes.c_str());
    return kWell;
}

}  // namespace

void addRemoveCommand(CommandLine& program) {
    Command command = program.command(
        "remove",
        "Backs up and removes the settings of a host; if it is its product line's last host and "
        "DeleteStoreOnUninstall is not 0, those of the whole line.");
    const auto options = std::make_shared<RemoveOptions>();
    addHostArgument(command, options->host);
    command
        .option("--backup", options->backup,
                "the backup's file; default: <id>JSW-<time>.reg beside the log")
        .shownAs("FILE.reg");
    command.flag("--no-backup", options->noBackup, "removes them without a backup");
    command.flag("--dry-run", options->dryRun, "shows what would be removed, and removes nothing");
    command.does([options] { return remove(*options); });
}

}  // namespace jsw::ctl
