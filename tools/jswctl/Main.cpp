/// @file Main.cpp
/// jswctl: checks an installation of the job status library, and installs and removes its settings.
/// Each command is in a file of its own and is added here.
#include "PublicLib/errors/Exception.h"
#include "tools/jswctl/Command.h"

#include <cstdio>
#include <exception>
#include <string>

namespace jsw::ctl {

namespace {

constexpr AddCommand* kCommands[] = {
    addCheckCommand,  addModuleCommand, addContentCommand, addInstallCommand,
    addRemoveCommand, addLogCommand,    addTryCommand,
};

int complain(const std::string& message, ExitCode code) {
    std::fprintf(stderr, "jswctl: %s\n", message.c_str());
    return code;
}

}  // namespace

}  // namespace jsw::ctl

int main(int argc, char** argv) {
    using namespace jsw::ctl;
    try {
        CommandLine program;
        for (AddCommand* addTo : kCommands) addTo(program);
        return program.run(argc, argv);
    } catch (const BadUse& mistake) {
        return complain(mistake.what(), kBadUse);
    } catch (const jsw::Exception& failure) {
        return complain(failure.text(), kFindings);
    } catch (const std::exception& failure) {
        return complain(failure.what(), kFindings);
    }
}
