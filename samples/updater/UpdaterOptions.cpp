#include "samples/updater/UpdaterOptions.h"

#include "samples/common/CommandLine.h"

namespace jsw::sample {
namespace {

/** Defines the command line, except "-UAC", whose single dash would make it three options. */
void describe(CLI::App& program, UpdaterOptions& options) {
    prepareCommandLine(program);
    const auto notEmpty = CLI::Validator(
        [](const std::string& value) { return std::string(value.empty() ? "needs a value" : ""); },
        "");
    program
        .add_option("--host", options.host,
                    "the program to update, by the first four letters of its name (else the "
                    "environment variable JSW_UPDATER_HOST, else qlde)")
        ->type_name("ID")
        ->check(notEmpty);
    program
        .add_option("--record", options.recordFile,
                    "file for the record of its start (qlupdater.log beside this program)")
        ->type_name("FILE")
        ->check(notEmpty);
    program.footer(
        "Records how it was started, then installs the contents of the folder \"updates\" beside "
        "it:\n"
        "  updates\\catalog.dll, rules.dll, view.dll, version.txt   new modules, version file\n"
        "  updates\\data\\                                           new billboard data\n"
        "Modules are copied beside this program under new names, data into the folder for data\n"
        "updates. Names and flags go to the registry; the next job switches to the new files. The\n"
        "library passes -UAC when it requests elevation.\n"
        "\n"
        "Exit code: 0 done, 1 something could not be installed, 2 invalid command line.\n");
}

constexpr const char* kPurpose = "qlupdater: a small updater program for the job status library.";

}  // namespace

ParsedOptions parseOptions(std::vector<std::string> arguments) {
    ParsedOptions parsed;
    parsed.options.elevated = std::erase(arguments, "-UAC") > 0;
    CLI::App program(kPurpose, "qlupdater");
    describe(program, parsed.options);
    parsed.error = parseCommandLine(program, std::move(arguments), parsed.options.help);
    return parsed;
}

std::string helpText() {
    UpdaterOptions defaults;
    CLI::App program(kPurpose, "qlupdater");
    describe(program, defaults);
    return program.help();
}

}  // namespace jsw::sample
