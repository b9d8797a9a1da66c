#include "jsw/settings/Settings.h"
#include "tools/jswctl/Command.h"
#include "tools/jswctl/Host.h"

#include <windows.h>

#include <cstdio>
#include <memory>

namespace jsw::ctl {

namespace {

int remove(const std::string& host) {
    nameHost(host);
    Settings settings;
    if (!settings.isValid()) {
        const DWORD error = GetLastError();
        if (error != ERROR_FILE_NOT_FOUND) {
            throw std::runtime_error("cannot open " + storeName() + ": " + errorText(error));
        }
        std::printf("There is no %s; nothing was removed.\n", storeName().c_str());
        return kWell;
    }
    if (!settings.removeStore()) {
        throw std::runtime_error("cannot remove all of " + storeName() + ": " +
                                 errorText(GetLastError()));
    }
    std::printf("Removed %s.\n", storeName().c_str());
    return kWell;
}

}  // namespace

void addRemoveCommand(CLI::App& program, Action& action) {
    auto* command = program.add_subcommand(
        "remove",
        "Removes the settings of a host; the last one's take their product line along "
        "when DeleteStoreOnUninstall says so.");
    const auto host = std::make_shared<std::string>();
    addHostArgument(*command, *host);
    command->callback([&action, host] { action = [host] { return remove(*host); }; });
}

}  // namespace jsw::ctl
