#pragma once

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <vector>

namespace jsw::sample {

/** A command line whose options may be given several times: the last one counts. */
inline void prepareCommandLine(CLI::App& program) {
    program.set_help_flag("--help", "show this text");
    program.option_defaults()->take_last();
    program.allow_windows_style_options(false);  // "/x" is a file name
}

/**
 * Parses a command line.
 *
 * @param arguments  without the program's name
 * @param help       set if --help is among them, whatever else is wrong
 * @return the mistake in the first invalid argument, or empty
 */
inline std::string parseCommandLine(CLI::App& program, std::vector<std::string> arguments,
                                    bool& help) {
    std::string error;
    std::reverse(arguments.begin(), arguments.end());  // CLI11 expects them in reverse order
    try {
        program.parse(arguments);
    } catch (const CLI::ExtrasError&) {
        const std::vector<std::string> unknown = program.remaining();
        error = "unknown option " + (unknown.empty() ? std::string() : unknown.front());
    } catch (const CLI::ParseError& problem) {
        error = problem.what();
    }
    help = program.get_help_ptr()->count() > 0;
    return help ? std::string() : error;
}

}  // namespace jsw::sample
