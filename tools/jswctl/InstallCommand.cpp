#include "PublicLib/text/Text.h"
#include "jsw/FirstRun.h"
#include "jsw/settings/Settings.h"
#include "tools/jswctl/Command.h"
#include "tools/jswctl/Host.h"
#include "tools/jswctl/store/Access.h"
#include "tools/jswctl/store/SettingsFile.h"

#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <vector>

namespace jsw::ctl {

namespace {

struct InstallOptions {
    std::string host;
    bool update = false;
    bool dryRun = false;
};

void say(const std::string& line) {
    std::printf("%s\n", line.c_str());
}

/// Checked first: without a file the library creates an empty store, which prevents a later
/// installation, and it copies the keys of another program unchanged.
SettingsFile requireSettingsFile() {
    SettingsFile file = readSettingsFile(settingsFilePath());
    if (!file.exists) {
        throw std::runtime_error("there is no settings file " + file.path +
                                 "; nothing was changed");
    }
    if (!file.parsed) {
        throw std::runtime_error(file.path + " has no sections to install; nothing was changed");
    }
    if (!file.reaches(storePath())) {
        throw std::runtime_error("no section of " + file.path + " is below this host's key [" +
                                 storePath() + "]; nothing was changed");
    }
    return file;
}

bool isUpdated(const Settings& settings, const setting::Number& flag) {
    std::uint32_t state = 0;
    return settings.read(flag, state) == Read::found &&
           state != static_cast<std::uint32_t>(UpdateFlag::none);
}

/// Stores what is new in the file in the existing store.
int update(const Settings& settings, const SettingsFile& file, bool dryRun) {
    const std::string store = storePath();
    const bool modules = isUpdated(settings, setting::kCompleteSoftwareUpdated);
    const bool data = isUpdated(settings, setting::kDataUpdated);
    std::size_t changed = 0;
    std::size_t kept = 0;
    for (const FileEntry& entry : file.entries) {
        if (!entry.isNews() || !entry.hasType()) continue;
        const bool isKept = isMachinesOwn(entry, store, modules, data);
        say(concat(isKept ? "  kept     " : "  changed  ", entry.section, " ", entry.name, ": ",
                   entry.stored.value_or("(none)"), isKept ? ", not " : " -> ", entry.value));
        ++(isKept ? kept : changed);
        if (isKept || dryRun) continue;
        const std::string made = firstMissingKey(entry.section);
        writeEntry(entry);
        if (!made.empty()) openToEveryone(made);
    }
    say(concat(changed, dryRun ? " values would be changed" : " values changed", " by ", file.path,
               ", ", kept, " left as they are on this machine."));
    return kWell;
}

/// Does what the host's first job would do, and gives the jobs of all users access to the new keys,
/// whose inherited permissions may be less.
int firstInstall(const SettingsFile& file, bool dryRun) {
    if (dryRun) {
        say(concat("Would install ", file.installable(), " values of ", file.path, " in ",
                   storeName(), "."));
        return kWell;
    }
    std::vector<std::string> made = {firstMissingKey(storePath())};
    for (const std::string& section : file.sections) made.push_back(firstMissingKey(section));
    FirstRun firstRun;
    const bool installed = firstRun.installStoreIfMissing();
    std::erase(made, std::string());
    for (const std::string& key : made) openToEveryone(key);
    if (!installed) {
        throw std::runtime_error("not all settings of " + file.path + " could be installed in " +
                                 storeName() + "; 'jswctl check' lists them");
    }
    say(concat("Installed ", file.path, " in ", storeName(), "."));
    return kWell;
}

int install(const InstallOptions& options) {
    nameExistingHost(options.host);
    const Settings settings;
    const bool isThere = settings.isValid();
    const DWORD error = GetLastError();  // why it does not open
    if (!isThere && error != ERROR_FILE_NOT_FOUND) {
        throw std::runtime_error("cannot open " + storeName() + ": " + errorText(error));
    }
    const bool isDue = !isThere || isFirstRunPending();
    if (!isDue && !options.update) {
        say(storeName() +
            " already has its settings; 'jswctl install --update' stores what is new in the file, "
            "'jswctl remove' removes them.");
        return kWell;
    }
    const SettingsFile file = requireSettingsFile();
    return isDue ? firstInstall(file, options.dryRun) : update(settings, file, options.dryRun);
}

}  // namespace

void addInstallCommand(CommandLine& program) {
    Command command = program.command(
        "install", "Installs the settings file beside a host, as the host's first job does.");
    const auto options = std::make_shared<InstallOptions>();
    addHostArgument(command, options->host);
    command.flag("--update", options->update,
                 "stores values that are new or different in the file into existing settings; "
                 "keeps history, window and updates");
    command.flag("--dry-run", options->dryRun, "shows what would be done, and does nothing");
    command.does([options] { return install(*options); });
}

}  // namespace jsw::ctl
