#pragma once

#include <string>
#include <vector>

namespace jsw::sample {

/** The updater's command line. */
struct UpdaterOptions {
    bool help = false;
    bool elevated = false;   ///< "-UAC": the library asked the shell for elevation
    std::string host;        ///< local id of the program to update; or empty
    std::string recordFile;  ///< empty: beside the updater
};

/** Options, or the command line's mistake. */
struct ParsedOptions {
    UpdaterOptions options;
    std::string error;  ///< or empty
};

/** @param arguments the command line without the program's name */
[[nodiscard]] ParsedOptions parseOptions(std::vector<std::string> arguments);

/** The text of --help. */
[[nodiscard]] std::string helpText();

}  // namespace jsw::sample
