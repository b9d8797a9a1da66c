// Whole jobs, with modules that answer at once and the log off.

#include "PublicLib/errors/Exception.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/EntryPoint.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/SystemFolders.h"
#include "bench/Host.h"
#include "bench/Measures.h"
#include "bench/modules/RulesEnd.h"
#include "jsw/settings/OfnSettings.h"
#include <jsw/jsw.h>
#include <jsw/view.h>

#include <windows.h>

#include <array>
#include <thread>
#include <vector>

namespace jsw::bench {

namespace {

constexpr char kView[] = "instant_view.dll";
constexpr char kCatalog[] = "instant_catalog.dll";
constexpr char kRules[] = "instant_rules.dll";

/// A store as after the first job. No update check is due.
void fillStore() {
    const Settings settings;
    settings.write(setting::kDataPath, "C:\\ProgramData\\Job Status");
    settings.write(setting::kDllPath, ".");
    settings.write(setting::kViewModule, kView);
    settings.write(setting::kCatalogModule, kCatalog);
    settings.write(setting::kRulesEngineModule, kRules);
    settings.write(setting::kDefaultBillboardFile, "welcome.jbb");
    settings.write(setting::kDefaultBillboardNavigate, 1);
    settings.write(setting::kDefaultBillboardRestore, 1);
    settings.write(setting::kCheckForUpdates, 0);
}

class Library {
  public:
    Library() : library_(LoadLibraryA("jsw.dll")) {
        if (!library_) throw Win32Exception("jsw.dll cannot be loaded", GetLastError());
    }

    auto init() const { return entry<decltype(JSWInit)>("JSWInit"); }
    auto updateInfo() const { return entry<decltype(JSWUpdateInfo)>("JSWUpdateInfo"); }
    auto terminate() const { return entry<decltype(JSWTerminate)>("JSWTerminate"); }

    void startJob() const {
        init()("SimulatedPrinter", "report.pdf", 0, 1, 3, 1, 1, nullptr, 0, 90, nullptr);
    }
    /// A job from start to end, in which all rules are processed.
    void runJob() const {
        startJob();
        WaitForSingleObject(rulesEndEvent(), INFINITE);
        terminate()();
    }

  private:
    template <class Function>
    Function* entry(const char* name) const {
        return findEntryPoint<Function>(library_.get(), name);
    }

    ModuleHandle library_;
};

/// A value, or only a key, that a job reads from the registry.
struct Wanted {
    HKEY hive;
    std::string key;
    std::string value;  // empty: only the key
};

/// Everything that a job must read: each module's folder and name, each choice of the user, …
std::vector<Wanted> whatAJobNeeds() {
    const Settings settings;
    const std::string local = settings.getKeyPath(false);
    const std::string printer = OfnSettings("SimulatedPrinter").getKeyPath(false);
    std::vector<Wanted> wanted;
    const auto add = [&](const std::string& root, const auto& setting) {
        wanted.push_back({HKEY_LOCAL_MACHINE, root + setting.key, setting.name});
    };
    wanted.push_back({HKEY_CLASSES_ROOT, "MSXML2.DomDocument.3.0", {}});
    wanted.push_back({HKEY_LOCAL_MACHINE, Localize::getInstance()->getJswRoot(), {}});
    wanted.push_back({HKEY_LOCAL_MACHINE, local, {}});
    wanted.push_back({HKEY_LOCAL_MACHINE, Localize::getInstance()->getJswRoot() + "Local",
                      Localize::getInstance()->localId() + setting::kInstallationPending});
    wanted.push_back({HKEY_LOCAL_MACHINE, local + setting::kLoggerKey, "startLog"});
    wanted.push_back({HKEY_LOCAL_MACHINE, local + setting::kHistoryIdsKey, {}});
    wanted.push_back({HKEY_LOCAL_MACHINE, local + setting::kGuiKey, {}});
    add(local, setting::kHistoryMaxSize);
    for (const auto* text :
         {&setting::kDataPath, &setting::kDllPath, &setting::kDefaultBillboard,
          &setting::kDefaultBillboardFile, &setting::kViewModule, &setting::kDllPath,
          &setting::kCatalogModule, &setting::kDllPath, &setting::kRulesEngineModule,
          &setting::kDataPath, &setting::kDataPath}) {
        add(local, *text);
    }
    for (const auto* number : {&setting::kCheckForUpdates, &setting::kCheckForUpdates,
                               &setting::kCheckForUpdates, &setting::kDefaultBillboardRestore}) {
        add(local, *number);
    }
    for (const auto* number : {&setting::kShowProcessWindow, &setting::kShowProcessWindow,
                               &setting::kJobProgressMinimized, &setting::kShowSpecialMessages,
                               &setting::kShowSpecialMessages, &setting::kCart1ReserveTankFlag,
                               &setting::kCart2ReserveTankFlag, &setting::kCompleteToPrint}) {
        add(printer, *number);
    }
    return wanted;
}

void askFor(const Wanted& wanted) {
    KeyHandle key;
    if (RegOpenKeyExA(wanted.hive, wanted.key.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS ||
        wanted.value.empty()) {
        return;
    }
    std::array<BYTE, MAX_PATH> buffer;
    auto size = static_cast<DWORD>(buffer.size());
    RegQueryValueExA(key.get(), wanted.value.c_str(), nullptr, nullptr, buffer.data(), &size);
}

/// The minimum that a job asks of the system. The view stays loaded between jobs.
void bareJob(const std::vector<Wanted>& wanted) {
    for (const Wanted& one : wanted) askFor(one);
    const ModuleHandle catalog(LoadLibraryA(kCatalog));
    const ModuleHandle rules(LoadLibraryA(kRules));
}

/// The rest that each job asks of the system: the XML parser's version, and a thread.
void askForParserAndThread() {
    const std::string parser = systemFolder() + "\\msxml3.dll";
    DWORD ignored = 0;
    std::vector<BYTE> version(GetFileVersionInfoSizeA(parser.c_str(), &ignored));
    GetFileVersionInfoA(parser.c_str(), 0, static_cast<DWORD>(version.size()), version.data());
    std::thread([] {}).join();
}

void measureJobs(Report& report, Thoroughness times) {
    const auto wanted = whatAJobNeeds();
    const ModuleHandle view(LoadLibraryA(kView));
    const Library library;
    library.runJob();
    const std::array<Work, 3> works{repeated([&] { library.runJob(); }),
                                    repeated([&] { bareJob(wanted); }), repeated([&] {
                                        bareJob(wanted);
                                        askForParserAndThread();
                                    })};
    const auto timings = timeInTurns(works, {400 * times, 1});
    const std::string floor = concat("module loads, ", wanted.size(), " registry reads");
    report.add({"a whole job", timings[0], floor, timings[1]});
    report.add(Row{"a whole job", timings[0], "these, XML parser's version, thread", timings[2]}
                   .withRatioAtMost(1.1));
}

void measureUpdateInfo(Report& report, Thoroughness times) {
    const Library library;
    library.startJob();
    auto* const updateInfo = library.updateInfo();
    auto* const bare = findEntryPoint<JswViewUpdateInfo>(GetModuleHandleA(kView), "UpdateInfo");
    const std::array<Work, 2> works{repeated([=] { updateInfo(1, 1, 60, 0, 0, nullptr); }),
                                    repeated([=] { bare(1, 1, 60, nullptr); })};
    const auto timings = timeInTurns(works, {100 * times, 5'000});
    library.terminate()();
    report.add({"JSWUpdateInfo in a job", timings[0], "the module's entry point", timings[1]});
}

void measureLoading(Report& report, Thoroughness times) {
    const auto wanted = whatAJobNeeds();
    const std::array<Work, 2> works{repeated([] { Library().runJob(); }), repeated([&] {
                                        const Library library;
                                        bareJob(wanted);
                                    })};
    const auto timings = timeInTurns(works, {50 * times, 1});
    report.add({"loading, one job, freeing", timings[0], "the same loads and reads", timings[1]});
}

}  // namespace

void measureJob(Report& report, Thoroughness times) {
    const Host host(0);
    fillStore();
    const KernelHandle rulesEnd(CreateEventA(nullptr, FALSE, FALSE, nullptr));
    SetEnvironmentVariableA(kRulesEndVariable,
                            concat(reinterpret_cast<std::uintptr_t>(rulesEnd.get())).c_str());
    measureUpdateInfo(report, times);
    measureJobs(report, times);
    measureLoading(report, times);
}

}  // namespace jsw::bench
