#include "samples/updater/UpdaterOptions.h"

#include "samples/common/CommandLine.h"

#include <utility>

namespace jsw::sample {
namespace {

/** The command line, except "-UAC", whose single dash would make it three options. */
CommandLine describe(UpdaterOptions& options) {
    CommandLine program(
        "qlupdater", "qlupdater: a small updater program for the job status library.",
        "Records how it was started, then installs the contents of the folder \"updates\" beside "
        "it:\n"
        "  updates\\catalog.dll, rules.dll, view.dll, version.txt   new modules, version file\n"
        "  updates\\data\\                                           new billboard data\n"
        "Modules are copied beside this program under new names, data into the folder for data\n"
        "updates. Names and flags go to the registry; the next job switches to the new files. The\n"
        "library passes -UAC when it requests elevation.\n"
        "\n"
        "Exit code: 0 done, 1 something could not be installed, 2 invalid command line.\n");
    program.add("--host", "ID",
                "the program to update, by the first four letters of its name (else the "
                "environment variable JSW_UPDATER_HOST, else qlde)",
                options.host);
    program.add("--record", "FILE",
                "file for the record of its start (qlupdater.log beside this program)",
                options.recordFile);
    return program;
}

}  // namespace

ParsedOptions parseOptions(std::vector<std::string> arguments) {
    ParsedOptions parsed;
    parsed.options.elevated = std::erase(arguments, "-UAC") > 0;
    parsed.error = describe(parsed.options).parse(std::move(arguments), parsed.options.help);
    return parsed;
}

std::string helpText() {
    UpdaterOptions defaults;
    return describe(defaults).help();
}

}  // namespace jsw::sample
