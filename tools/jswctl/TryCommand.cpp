// The process in which a module is tried; jswctl starts it itself and reads what it tells (see
// module/TrialLines.h). Left out of --help.

#include "PublicLib/text/Text.h"
#include "PublicLib/win/EntryPoint.h"
#include "jsw/modules/ModuleBinding.h"
#include "tools/jswctl/Command.h"
#include "tools/jswctl/Host.h"
#include "tools/jswctl/module/Trial.h"
#include "tools/jswctl/module/TrialLines.h"
#include <jsw/catalog.h>
#include <jsw/device.h>
#include <jsw/legacy.h>
#include <jsw/rules.h>
#include <jsw/view.h>

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <vector>

namespace jsw::ctl {

namespace {

struct TryOptions {
    std::string kind;
    std::string file;
    int scope = 0;
    std::uintptr_t pipe = 0;
    std::string folder;
    std::vector<std::string> ids;
};

/// What the parent reads.
class Teller {
  public:
    explicit Teller(HANDLE pipe) : pipe_(pipe) {}

    void tell(const std::string& line) const {
        DWORD written = 0;
        WriteFile(pipe_, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    }

    /// Tells that a call begins, makes it, and tells how long it took and what it answered in
    /// words.
    template <class Call>
    void timed(const std::string& name, const Call& call) const {
        tell(trialline::begin(name));
        const auto begin = std::chrono::steady_clock::now();
        const std::string answer = call();
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - begin;
        tell(trialline::end(time.count(), answer));
    }

  private:
    HANDLE pipe_;
};

/// Calls entry points of one module; those it does not have are passed over.
class Caller {
  public:
    Caller(const Teller& teller, HMODULE module) : teller_(teller), module_(module) {}

    template <class Function, class Use>
    void call(const char* name, const std::string& argument, const Use& use) const {
        auto* entry = findEntryPoint<Function>(module_, name);
        if (entry == nullptr) return;
        teller_.timed(argument.empty() ? name : concat(name, "(", argument, ")"), [&] {
            try {
                return std::string(use(entry));
            } catch (...) {
                return std::string(kException);
            }
        });
    }

    template <class Function, class... Args>
    void callPlain(const char* name, const Args&... args) const {
        call<Function>(name, "", [&](Function* entry) {
            entry(args...);
            return "";
        });
    }

  private:
    const Teller& teller_;
    HMODULE module_;
};

std::string answerOf(char* text) {
    const ModuleMemory<char> owner(text);
    return text == nullptr ? kNoAnswer : text;
}

std::string answerOf(char** list) {
    const ModuleMemory<char*> owner(list);
    if (list == nullptr) return kNoAnswer;
    std::string all;
    for (char** next = list; *next != nullptr && **next != '\0'; ++next) {
        all += concat(all.empty() ? "" : ", ", takeText(*next));
    }
    return all;
}

std::string answerOf(JswBool flag) {
    return flag != 0 ? "yes" : "no";
}

template <class Function>
void ask(const Caller& caller, const char* name, const char* id) {
    caller.call<Function>(name, id, [&](Function* entry) { return answerOf(entry(id)); });
}

void askForPages(const Caller& caller, const std::vector<std::string>& ids) {
    caller.callPlain<JswCatalogInitialize>("Initialize", &allocateForModule);
    for (const std::string& id : ids) {
        ask<JswCatalogText>(caller, "GetBillboardFileName", id.c_str());
    }
}

void useCatalog(const Caller& caller, const std::vector<std::string>& ids) {
    caller.callPlain<JswCatalogInitialize>("Initialize", &allocateForModule);
    for (const std::string& each : ids) {
        const char* id = each.c_str();
        ask<JswCatalogText>(caller, "GetBillboardFileName", id);
        ask<JswCatalogText>(caller, "GetBillboardType", id);
        ask<JswCatalogList>(caller, "GetBillboardActions", id);
        ask<JswCatalogFlag>(caller, "GetBillboardEnableNavigation", id);
        ask<JswCatalogFlag>(caller, "GetBillboardRestoreWindow", id);
        ask<JswCatalogText>(caller, "GetBillboardCarts", id);
        ask<JswCatalogList>(caller, "GetBillboardIds", id);
    }
    caller.callPlain<JswCatalogUnInitialize>("UnInitialize");
}

InkInfo noInkKnown() {
    InkInfo inkInfo{};
    std::fill(std::begin(inkInfo.InkPercent), std::end(inkInfo.InkPercent), -1);
    return inkInfo;
}

/// UpdateSettings is left out: an engine keeps what it is told there.
void useRules(const Caller& caller) {
    const InkInfo inkInfo = noInkKnown();
    caller.call<JswRulesInitializeEngine>(
        "InitializeEngine", "", [&](JswRulesInitializeEngine* entry) {
            return answerOf(entry(&allocateForModule, &inkInfo, "jswctl", "jswctl", 1, 1));
        });
    const auto question = [](JswRulesQuestion* entry) { return answerOf(entry()); };
    caller.call<JswRulesQuestion>("IsMoreRules", "", question);
    caller.call<JswRulesEvaluateRule>(
        "EvaluateRule", "", [](JswRulesEvaluateRule* entry) { return answerOf(entry()); });
    caller.call<JswRulesQuestion>("IsHistoryChecked", "", question);
    caller.callPlain<JswRulesUnInitialize>("UnInitialize");
}

/// Nothing is shown, and without callbacks nothing can be kept.
void useView(const Caller& caller) {
    const InkInfo inkInfo = noInkKnown();
    caller.callPlain<JswViewPlain>("Initialize");
    caller.callPlain<JswViewText>("SetDataPath", ".");
    caller.callPlain<JswViewText>("SetJobName", "jswctl");
    caller.callPlain<JswViewText>("SetPrinterFriendlyName", "jswctl");
    caller.callPlain<JswViewNumber>("SetCurrentPage", 1);
    caller.callPlain<JswViewNumber>("SetTotalPages", 1);
    caller.callPlain<JswViewInkInfo>("SetInkInfo", &inkInfo);
    caller.callPlain<JswViewPlain>("Uninitialize");
}

void useLegacy(const Caller& caller) {
    caller.call<JswLegacyInitEx>("JSWInitEx", "jswctl",
                                 [](JswLegacyInitEx* entry) { return concat(entry("jswctl")); });
    caller.callPlain<JswLegacyTerminate>("JSWTerminate");
}

void useDevice(const Caller& caller) {
    const auto lifetime = [](JswDeviceLifetime* entry) { return concat(entry()); };
    caller.call<JswDeviceLifetime>("PcsInitialize", "", lifetime);
    caller.call<JswDeviceGetClientId>("PcsGetClientId", "", [](JswDeviceGetClientId* entry) {
        JswDeviceClientId client = 0;
        return concat(entry(&client, ""));
    });
    caller.call<JswDeviceLifetime>("PcsUninitialize", "", lifetime);
}

void useModule(const TryOptions& options, const Caller& caller) {
    const std::string& kind = options.kind;
    const auto scope = static_cast<TrialScope>(options.scope);
    if (scope == TrialScope::load) return;
    if (scope == TrialScope::questions) return askForPages(caller, options.ids);
    if (kind == "catalog") return useCatalog(caller, options.ids);
    if (kind == "rules") return useRules(caller);
    if (kind == "view") return useView(caller);
    if (kind == "legacy") return useLegacy(caller);
    useDevice(caller);
}

/// Ends the process with the exception's code and no dialog.
LONG WINAPI endQuietly(EXCEPTION_POINTERS* exception) {
    TerminateProcess(GetCurrentProcess(), exception->ExceptionRecord->ExceptionCode);
    return EXCEPTION_EXECUTE_HANDLER;
}

int tryIt(const TryOptions& options) {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    SetUnhandledExceptionFilter(endQuietly);
    if (!options.folder.empty()) SetDllDirectoryA(options.folder.c_str());
    const Teller teller(reinterpret_cast<HANDLE>(options.pipe));  // NOLINT: it came as a number
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
        // The library never unloads a view, whose threads may still be leaving its code.
        if (options.kind != "view") {
            teller.timed("FreeLibrary", [&] {
                FreeLibrary(module);
                return std::string();
            });
        }
    }
    teller.tell(trialline::finished());
    // Without the ends of threads that a module has left behind.
    TerminateProcess(GetCurrentProcess(), kWell);
    return kWell;
}

}  // namespace

void addTryCommand(CLI::App& program, Action& action) {
    auto* command = program.add_subcommand("try", "")->group("");
    const auto options = std::make_shared<TryOptions>();
    command->add_option("kind", options->kind)->required();
    command->add_option("file", options->file)->required();
    command->add_option("--scope", options->scope)->required();
    command->add_option("--pipe", options->pipe)->required();
    command->add_option("--folder", options->folder);
    command->add_option("--id", options->ids);
    command->callback([&action, options] { action = [options] { return tryIt(*options); }; });
}

}  // namespace jsw::ctl
