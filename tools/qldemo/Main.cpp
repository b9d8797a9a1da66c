/**
 * @file Main.cpp
 * qldemo: plays a printer driver. It knows only jsw/jsw.h and the location of the settings.
 */
#include "common/Files.h"
#include "tools/qldemo/Console.h"
#include "tools/qldemo/DemoOptions.h"
#include "tools/qldemo/DemoScript.h"
#include "tools/qldemo/DemoStore.h"
#include "tools/qldemo/JobPlan.h"
#include "tools/qldemo/JobRun.h"
#include "tools/qldemo/JswLibrary.h"
#include "tools/qldemo/PromptModule.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace jsw::qldemo {
namespace {

enum ExitCode { kDone = 0, kFailed = 1, kBadOptions = 2 };

std::vector<Step> loadScript(const std::string& path) {
    if (path.empty()) {
        return {};
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read the script " + path);
    const std::string text((std::istreambuf_iterator<char>(file)), {});
    ParsedScript script = parseScript(text);
    if (!script.error.empty()) throw std::runtime_error(path + ", " + script.error);
    return std::move(script.steps);
}

/**
 * A job without data that ends at once: it makes the library install its settings, and no sample
 * rule applies to it.
 */
int install() {
    const JswLibrary library(common::moduleFolder(nullptr) + "jsw.dll");
    const InkInfo noInkKnown = JSW_INK_UNKNOWN;
    library.init("", "", 0, 0, static_cast<uint32_t>(-1), 0, 0, &noInkKnown, 0, 0, nullptr);
    library.terminate();
    if (!storeExists()) throw std::runtime_error("the library has not installed its settings");
    return kDone;
}

/**
 * Installs the settings before the first job if options change some of them. In a separate process,
 * because the library checks for missing settings only now and then.
 */
void installInOwnProcess() {
    std::string command = "\"" + common::moduleFileName(nullptr) + "\" --install";
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &startup, &process) == FALSE) {
        throw std::runtime_error("cannot start the installation of the settings, error " +
                                 std::to_string(GetLastError()));
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD exitCode = kFailed;
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    if (exitCode != kDone) throw std::runtime_error("the settings could not be installed");
}

/** Reported at once, not at the first screenshot. */
void requireFolder(const std::string& folder) {
    const DWORD attributes = GetFileAttributesA(folder.c_str());
    if (!folder.empty() &&
        (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)) {
        throw std::runtime_error("there is no folder " + folder + " for screenshots");
    }
}

void prepareStore(const DemoOptions& options) {
    const std::string& deviceFile = options.deviceFile;
    if (!deviceFile.empty() && GetFileAttributesA(deviceFile.c_str()) == INVALID_FILE_ATTRIBUTES) {
        throw std::runtime_error("cannot find the device file " + deviceFile);
    }
    const bool changes = options.log || !deviceFile.empty();
    if (changes && !storeExists()) installInOwnProcess();
    if (options.log) switchLogOn();
    if (!deviceFile.empty()) {
        setDeviceClient(common::moduleFolder(nullptr) + "comc.dll");
        _putenv_s("JSW_DEVICE_FILE", deviceFile.c_str());
    } else if (storeExists()) {
        removeDeviceClient();
    }
}

bool asksTheUser(const DemoOptions& options, const std::vector<Step>& script) {
    return options.prompt || std::any_of(script.begin(), script.end(), [](const Step& step) {
               return step.action == Action::kPrompt;
           });
}

int runJobs(const DemoOptions& options) {
    const std::vector<Step> script = loadScript(options.scriptFile);
    requireFolder(options.screenshotFolder);
    prepareStore(options);
    if (asksTheUser(options, script)) {
        installPromptModule(common::moduleFolder(nullptr) + "jswo.dll");
    }
    const JswLibrary library(common::moduleFolder(nullptr) + "jsw.dll");
    bool good = true;
    for (uint32_t job = 1; job <= options.jobs; ++job) {
        if (options.jobs > 1) {
            console().plain("Job " + std::to_string(job) + " of " + std::to_string(options.jobs));
        }
        good = JobRun(library, options, planJob(options, script, job)).run() && good;
    }
    // Frees what a job that ended inside a prompt has left; otherwise does nothing.
    library.terminate();
    return good ? kDone : kFailed;
}

int recordUrl(const DemoOptions& options) {
    std::ofstream file(options.urlFile, std::ios::app);
    file << options.url << '\n';
    file.close();
    return file ? kDone : kFailed;
}

int runProgram(const std::vector<std::string>& arguments) {
    ParsedOptions parsed = parseOptions(arguments);
    if (!parsed.error.empty()) {
        std::fprintf(stderr, "qldemo: %s\nTry qldemo --help.\n", parsed.error.c_str());
        return kBadOptions;
    }
    DemoOptions& options = parsed.options;
    for (std::string* path :
         {&options.deviceFile, &options.scriptFile, &options.screenshotFolder, &options.urlFile}) {
        *path = common::fullPath(*path);
    }
    // Relative paths in the settings are relative to this folder.
    SetCurrentDirectoryA(common::moduleFolder(nullptr).c_str());
    switch (options.mode) {
        case Mode::kHelp:
            std::fputs(helpText().c_str(), stdout);
            return kDone;
        case Mode::kInstall:
            return install();
        case Mode::kRecordUrl:
            return recordUrl(options);
        case Mode::kRunJobs:
            break;
    }
    return runJobs(options);
}

}  // namespace

}  // namespace jsw::qldemo

int main(int argc, char** argv) {
    try {
        return jsw::qldemo::runProgram(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "qldemo: %s\n", problem.what());
        return jsw::qldemo::kFailed;
    }
}
