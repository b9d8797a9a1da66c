#pragma once

#include <string>
#include <vector>

namespace jsw::updater {

/** What the command line of the updater says. */
struct UpdaterOptions {
    bool help = false;
    bool elevated = false;   ///< "-UAC": the library asked the shell for elevation
    std::string host;        ///< local id of the program to update; empty when not given
    std::string recordFile;  ///< empty: beside the updater
};

/** Options, or what is wrong with the command line. */
struct ParsedOptions {
    UpdaterOptions options;
    std::string error;  ///< empty when all is well
};

/** @param arguments the command line without the program's name */
[[nodiscard]] ParsedOptions parseOptions(std::vector<std::string> arguments);

/** The text of --help. */
[[nodiscard]] std::string helpText();

}  // namespace jsw::updater
