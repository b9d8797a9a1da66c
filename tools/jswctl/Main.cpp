/// @file Main.cpp
/// jswctl: checks an installation of the job status library, and installs and removes its settings.
/// Each command is in a file of its own and is added here.
#include "PublicLib/errors/Exception.h"
#include "PublicLib/text/Text.h"
#include "tools/jswctl/Command.h"

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace jsw::ctl {

namespace {

constexpr AddCommand* kCommands[] = {
    addCheckCommand,  addModuleCommand, addContentCommand, addInstallCommand,
    addRemoveCommand, addLogCommand,    addTryCommand,
};

constexpr char kTryHelp[] = "; try jswctl --help";

int complain(const std::string& message, ExitCode code) {
    std::fprintf(stderr, "jswctl: %s\n", message.c_str());
    return code;
}

/// The exit code of a command line without action: help, version or a mistake.
int endAfterParsing(const CLI::App& program, const CLI::ParseError& end) {
    if (end.get_exit_code() == 0) return program.exit(end);
    const std::vector<std::string> unknown = program.remaining();
    if (program.get_subcommands().empty() && !unknown.empty()) {
        return complain(concat("there is no command '", unknown.front(), "'", kTryHelp), kBadUse);
    }
    return complain(std::string(end.what()) + kTryHelp, kBadUse);
}

int runProgram(int argc, char** argv) {
    CLI::App program("Checks and prepares an installation of the job status library.", "jswctl");
    program.set_version_flag("--version", "jswctl " JSWCTL_VERSION);
    program.allow_windows_style_options(false);  // "/x" is a file name
    program.require_subcommand(0, 1);            // a missing command is reported below
    program.footer("Exit code: 0 success, 1 something stops a job or failed, 2 wrong usage.");
    Action action;
    for (AddCommand* addTo : kCommands) addTo(program, action);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& end) {
        return endAfterParsing(program, end);
    }
    if (!action) return complain(std::string("no command given") + kTryHelp, kBadUse);
    return action();
}

}  // namespace

}  // namespace jsw::ctl

int main(int argc, char** argv) {
    using namespace jsw::ctl;
    try {
        return runProgram(argc, argv);
    } catch (const BadUse& mistake) {
        return complain(mistake.what(), kBadUse);
    } catch (const jsw::Exception& failure) {
        return complain(failure.text(), kFindings);
    } catch (const std::exception& failure) {
        return complain(failure.what(), kFindings);
    }
}
