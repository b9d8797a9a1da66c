#include "jsw/FirstRun.h"
#include "jsw/settings/Settings.h"
#include "tools/jswctl/Command.h"
#include "tools/jswctl/Host.h"

#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <memory>

namespace jsw::ctl {

namespace {

/// Looked for first: the library creates an empty store without a file, and an empty store keeps
/// the file from being installed later.
void requireSettingsFile(const std::string& file) {
    if (GetFileAttributesA(file.c_str()) == INVALID_FILE_ATTRIBUTES) {
        throw std::runtime_error("there is no settings file " + file + "; nothing was changed");
    }
}

int install(const std::string& host) {
    nameExistingHost(host);
    const Settings settings;
    const bool isThere = settings.isValid();
    const DWORD error = GetLastError();  // why it cannot be opened
    if (isThere && !isFirstRunPending()) {
        std::printf("%s has its settings already; 'jswctl remove' takes them away.\n",
                    storeName().c_str());
        return kWell;
    }
    if (!isThere && error != ERROR_FILE_NOT_FOUND) {
        throw std::runtime_error("cannot open " + storeName() + ": " + errorText(error));
    }
    const std::string file = settingsFilePath();
    requireSettingsFile(file);
    if (!FirstRun().installStoreIfMissing()) {
        throw std::runtime_error("not all settings of " + file + " could be installed in " +
                                 storeName() + "; 'jswctl check' says which");
    }
    std::printf("Installed %s in %s.\n", file.c_str(), storeName().c_str());
    return kWell;
}

}  // namespace

void addInstallCommand(CLI::App& program, Action& action) {
    auto* command = program.add_subcommand(
        "install", "Installs the settings file beside a host, as the host's first job would.");
    const auto host = std::make_shared<std::string>();
    addHostArgument(*command, *host);
    command->callback([&action, host] { action = [host] { return install(*host); }; });
}

}  // namespace jsw::ctl
