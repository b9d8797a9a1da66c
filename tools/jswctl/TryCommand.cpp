// The process that tests a module; jswctl starts it and reads its reports (see
// module/TrialLines.h). Not in --help.

#include "tools/jswctl/Command.h"
#include "tools/jswctl/Host.h"
#include "tools/jswctl/module/Trial.h"
#include "tools/jswctl/module/TrialCalls.h"

#include <windows.h>

#include <memory>
#include <vector>

namespace jsw::ctl {

namespace {

struct TryOptions {
    std::string kind;
    std::string file;
    std::int32_t scope = 0;
    std::uintptr_t pipe = 0;
    std::string folder;
    std::vector<std::string> ids;
    TrialJob job;
};

void useModule(const TryOptions& options, const Caller& caller) {
    const auto scope = static_cast<TrialScope>(options.scope);
    if (scope == TrialScope::questions) askForPages(caller, options.ids);
    if (scope == TrialScope::calls) goThrough(options.kind, caller, options.job, options.ids);
}

/// Ends the process with the exception's code, without a dialog.
LONG WINAPI endQuietly(EXCEPTION_POINTERS* exception) {
    TerminateProcess(GetCurrentProcess(), exception->ExceptionRecord->ExceptionCode);
    return EXCEPTION_EXECUTE_HANDLER;
}

int tryIt(const TryOptions& options) {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    SetUnhandledExceptionFilter(endQuietly);
    if (!options.folder.empty()) SetDllDirectoryA(options.folder.c_str());
    const Teller teller(reinterpret_cast<HANDLE>(options.pipe));  // NOLINT: passed as a number
    HMODULE module = nullptr;
    DWORD error = 0;
    teller.timed("LoadLibrary", [&] {
        module = LoadLibraryA(options.file.c_str());
        error = GetLastError();
        return std::string();
    });
    if (module == nullptr) {
        teller.tell(trialline::problem("it cannot be loaded: " + errorText(error)));
    } else {
        useModule(options, Caller(teller, module));
        // The library never unloads a view, whose threads may still run its code.
        if (options.kind != "view") {
            teller.timed("FreeLibrary", [&] {
                FreeLibrary(module);
                return std::string();
            });
        }
    }
    teller.tell(trialline::finished());
    // Without waiting for threads that the module has left.
    TerminateProcess(GetCurrentProcess(), kWell);
    return kWell;
}

}  // namespace

void addTryCommand(CommandLine& program) {
    Command command = program.command("try", "");
    const auto options = std::make_shared<TryOptions>();
    command.option("kind", options->kind).required();
    command.option("file", options->file).required();
    command.option("--scope", options->scope).required();
    command.option("--pipe", options->pipe).required();
    command.option("--folder", options->folder);
    command.option("--id", options->ids);
    addJobOptions(command, options->job);
    command.does([options] { return tryIt(*options); });
}

}  // namespace jsw::ctl
