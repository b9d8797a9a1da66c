/**
 * @file Main.cpp
 * qlupdater: a small updater program for the job status library.
 */
#include "common/Encoding.h"
#include "common/Files.h"
#include "common/Language.h"
#include "common/Phrase.h"
#include "samples/common/HostStore.h"
#include "samples/updater/StartRecord.h"
#include "samples/updater/Update.h"
#include "samples/updater/UpdaterOptions.h"
#include "samples/updater/UpdaterTexts.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>

namespace jsw::sample {
namespace {

enum ExitCode { kDone = 0, kFailed = 1, kBadOptions = 2 };

constexpr const char* kDefaultHost = "qlde";

/** The program to update, and who said so. */
struct Host {
    std::string id;
    const char* from;
};

Host hostToUpdate(const UpdaterOptions& options) {
    if (!options.host.empty()) {
        return {options.host, "the command line"};
    }
    const char* variable = std::getenv("JSW_UPDATER_HOST");
    if (variable != nullptr && *variable != '\0') {
        return {variable, "the environment"};
    }
    return {kDefaultHost, "default"};
}

void tell(const std::string& text) {
    const std::wstring line = common::wide(text) + L"\n";
    DWORD written = 0;
    const bool isConsole =
        WriteConsoleW(GetStdHandle(STD_OUTPUT_HANDLE), line.c_str(),
                      static_cast<DWORD>(line.size()), &written, nullptr) != FALSE;
    if (!isConsole) std::fputs(common::ansi(line).c_str(), stdout);
}

int runProgram(const std::vector<std::string>& arguments) {
    const ParsedOptions parsed = parseOptions(arguments);
    if (!parsed.error.empty()) {
        std::fprintf(stderr, "qlupdater: %s\nTry qlupdater --help.\n", parsed.error.c_str());
        return kBadOptions;
    }
    const UpdaterOptions& options = parsed.options;
    if (options.help) {
        std::fputs(helpText().c_str(), stdout);
        return kDone;
    }
    const std::string folder = common::moduleFolder(nullptr);
    const std::string record =
        options.recordFile.empty() ? folder + "qlupdater.log" : options.recordFile;
    const Host host = hostToUpdate(options);

    std::vector<std::string> lines = howStarted(options.elevated);
    lines.push_back("host: " + host.id + " (" + host.from + ")");
    const UpdateReport report = installUpdates(folder, HostStore(host.id));
    lines.insert(lines.end(), report.lines.begin(), report.lines.end());
    lines.emplace_back("ended");
    // In one write, so that a reader who waits for the last line finds all of them.
    if (!appendLines(record, lines)) throw std::runtime_error("cannot write " + record);
    const auto texts = common::translated<UpdaterTexts>(common::userLanguages());
    const std::string& text = !report.good       ? common::fillIn(texts.installFailed, {record})
                              : report.installed ? texts.updatesInstalled
                                                 : texts.nothingToInstall;
    tell(text);
    return report.good ? kDone : kFailed;
}

}  // namespace

}  // namespace jsw::sample

int main(int argc, char** argv) {
    try {
        return jsw::sample::runProgram(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "qlupdater: %s\n", problem.what());
        return jsw::sample::kFailed;
    }
}
