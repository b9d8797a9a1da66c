#include "samples/updater/UpdaterOptions.h"

namespace jsw::updater {

ParsedOptions parseOptions(const std::vector<std::string>& arguments) {
    ParsedOptions parsed;
    for (size_t index = 0; index < arguments.size(); ++index) {
        const std::string& argument = arguments[index];
        std::string* value = argument == "--host"     ? &parsed.options.host
                             : argument == "--record" ? &parsed.options.recordFile
                                                      : nullptr;
        if (argument == "--help") {
            parsed.options.help = true;
            parsed.error.clear();
            return parsed;  // whoever asks for help gets it, whatever else is wrong
        }
        if (value != nullptr) {
            if (++index >= arguments.size() || arguments[index].empty()) {
                parsed.error = argument + " needs a value";
                return parsed;
            }
            *value = arguments[index];
        } else if (argument == "-UAC") {
            parsed.options.elevated = true;
        } else if (parsed.error.empty()) {
            parsed.error = "unknown option '" + argument + "'";
        }
    }
    return parsed;
}

const char* helpText() {
    return "qlupdater: plays the updater program of the job status library.\n"
           "\n"
           "Notes how it was started, then installs what lies in the folder \"updates\" beside "
           "it:\n"
           "  updates\\catalog.dll, rules.dll, view.dll, version.txt   new modules, version file\n"
           "  updates\\data\\                                           new billboard data\n"
           "Modules are copied beside this program under new names, data into the folder for data\n"
           "updates. Names and state go to the registry; the library takes them into use when the\n"
           "next job starts.\n"
           "\n"
           "Options:\n"
           "  --host ID      the program to update, by the first four letters of its name\n"
           "                 (else the environment variable JSW_UPDATER_HOST, else qlde)\n"
           "  --record FILE  where to note how it was started (qlupdater.log beside this program)\n"
           "  -UAC           given by the library when it asks for elevation\n"
           "  --help         this text\n"
           "\n"
           "Exit code: 0 done, 1 something could not be installed, 2 bad command line.\n";
}

}  // namespace jsw::updater
