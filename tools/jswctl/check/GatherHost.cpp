#include "tools/jswctl/check/GatherHost.h"

#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/os/OsVersion.h"
#include "PublicLib/os/ProductLines.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "jsw/XmlParserLibrary.h"
#include "jsw/settings/Settings.h"
#include "tools/jswctl/Host.h"
#include "tools/jswctl/check/GatherFirstRun.h"
#include "tools/jswctl/check/SettingRows.h"
#include "tools/jswctl/module/GatherModule.h"
#include "tools/jswctl/module/ModuleJudgement.h"
#include "tools/jswctl/module/Trial.h"

#include <windows.h>

#include <algorithm>
#include <ctime>

namespace jsw::ctl {

namespace {

constexpr char kInkStatusId[] = "INK_STATUS";

Presence look(const std::string& path) {
    Presence presence{inFull(path), false, false};
    const DWORD attributes = GetFileAttributesA(path.c_str());
    presence.exists = attributes != INVALID_FILE_ATTRIBUTES;
    presence.isFolder = presence.exists && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return presence;
}

void gatherNames(HostFacts& facts) {
    const auto names = Localize::getInstance();
    facts.hostPath = names->modulePath();
    facts.localId = names->localId();
    const ProductLine* line = findProductLine(facts.localId);
    if (line != nullptr) facts.productLine = line->key;
    facts.productRoot = names->getProductLineRoot();
    facts.storePath = names->getRegistryPath(StoreKind::local);
    facts.storePath.pop_back();
    facts.currentFolder = inFull(".");
    facts.driverFolder = OsVersion::instance().printerDriverFolderByMajorVersion();
}

/// What the first job writes for a missing folder. Not from the update controller, which only uses
/// the registry.
std::string initialPath(const StoreImage& image) {
    return joinPath(programFilesFolder(), image.text(setting::kInitialPath).value);
}

/// "1.1.0" from a file's version resource; empty if there is none.
std::string fileVersion(const std::string& path) {
    DWORD ignored = 0;
    std::vector<char> resource(GetFileVersionInfoSizeA(path.c_str(), &ignored));
    VS_FIXEDFILEINFO* info = nullptr;
    UINT size = 0;
    if (resource.empty() ||
        GetFileVersionInfoA(path.c_str(), 0, static_cast<DWORD>(resource.size()),
                            resource.data()) == FALSE ||
        VerQueryValueA(resource.data(), "\\", reinterpret_cast<void**>(&info), &size) == FALSE) {
        return {};
    }
    return concat(HIWORD(info->dwFileVersionMS), ".", LOWORD(info->dwFileVersionMS), ".",
                  HIWORD(info->dwFileVersionLS));
}

void gatherLibrary(HostFacts& facts) {
    facts.library = gatherModule(libraryKind(), "jsw.dll", std::string(folderPart(facts.hostPath)));
    facts.libraryVersion = fileVersion(facts.library.fullPath);
    facts.toolVersion = JSWCTL_VERSION;
}

void gatherParser(HostFacts& facts) {
    KeyHandle key;
    facts.parserRegistered =
        RegOpenKeyExA(HKEY_CLASSES_ROOT, kXmlParserClass, 0, KEY_READ, key.put()) == ERROR_SUCCESS;
    MethodTrace silent;
    facts.parserVersion =
        parserLibraryVersion(joinPath(systemFolder(), kXmlParserFile), silent).value_or(0);
}

/// Tests whether a line could be written, on the file or, if it is missing, on its folder; changes
/// neither.
void gatherLog(HostFacts& facts) {
    facts.log = look(BasicLogger::filePath());
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExA(facts.log.path.c_str(), GetFileExInfoStandard, &data);
    facts.logSize = (std::uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow;
    const std::string path =
        facts.log.exists ? facts.log.path : std::string(folderPart(facts.log.path));
    const DWORD access = facts.log.exists ? FILE_APPEND_DATA : FILE_ADD_FILE;
    const KernelHandle file(CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                                        nullptr));
    facts.logError = file ? 0 : GetLastError();
}

void gatherUpkeep(HostFacts& facts) {
    facts.now = std::time(nullptr);
    localtime_s(&facts.localNow, &facts.now);
    std::vector<std::string> ids;
    Settings().getValueNames(setting::kHistoryIdsKey, ids);
    facts.historySize = static_cast<std::uint32_t>(ids.size());
}

/// Values in the library's keys whose names it does not know.
void gatherUnknownValues(HostFacts& facts) {
    std::vector<std::string> keys;
    for (const SettingRow& row : settingRows(facts)) {
        if (std::find(keys.begin(), keys.end(), row.key) == keys.end()) keys.push_back(row.key);
    }
    for (const std::string& key : keys) {
        const std::vector<std::string> known = settingNames(key);
        std::vector<std::string> names;
        Settings().getValueNames(key, names);
        for (const std::string& name : names) {
            const bool isKnown = std::any_of(
                known.begin(), known.end(),
                [&](const std::string& other) { return equalsIgnoringCase(name, other); });
            if (!isKnown) facts.unknownValues.push_back({key, name});
        }
    }
}

class ModuleGathering {
  public:
    explicit ModuleGathering(HostFacts& facts)
        : facts_(facts), hostFolder_(folderPart(facts.hostPath)) {}

    const ModuleFacts& add(const char* kindName, const std::string& path,
                           const std::vector<std::string>& billboardIds = {}) {
        const ModuleKind& kind = *findModuleKind(kindName);
        ModuleFacts module = gatherModule(kind, path, hostFolder_);
        if (isLoadable(module)) {
            TrialPlan plan;
            plan.scope = billboardIds.empty() ? TrialScope::load : TrialScope::questions;
            plan.billboardIds = billboardIds;
            plan.hostFolder = hostFolder_;
            plan.hostName = std::string(fileNamePart(facts_.hostPath));
            module.trial = tryModule(kind, module.fullPath, plan);
        }
        facts_.modules.push_back(std::move(module));
        return facts_.modules.back();
    }

  private:
    HostFacts& facts_;
    std::string hostFolder_;
};

Presence pageFile(const HostPaths& paths, const std::string& name) {
    return look(concat(paths.dataPath, "\\Scripts\\", name));
}

PageFacts pageOf(const ModuleFacts& catalog, const std::string& id, const HostPaths& paths) {
    PageFacts page;
    page.id = id;
    for (const ModuleCall& call : catalog.trial.calls) {
        if (!call.ended || call.name != concat("GetBillboardFileName(", id, ")")) continue;
        page.wasAsked = true;
        if (call.answer != kNoAnswer) page.fileName = call.answer;
    }
    if (!page.fileName.empty()) page.file = pageFile(paths, page.fileName);
    return page;
}

void gatherModulesAndPages(HostFacts& facts, const HostPaths& paths) {
    const std::string defaultId = facts.image.text(setting::kDefaultBillboard).value;
    ModuleGathering modules(facts);
    modules.add("view", paths.view);
    const ModuleFacts catalog = modules.add("catalog", paths.catalog, {defaultId, kInkStatusId});
    modules.add("rules", paths.rules);
    modules.add("legacy", paths.legacy);
    modules.add("device", paths.device);
    facts.dataFolder = look(paths.dataPath);
    facts.pages = {pageOf(catalog, defaultId, paths), pageOf(catalog, kInkStatusId, paths)};
    facts.cachedDefault.fileName = facts.image.text(setting::kDefaultBillboardFile).value;
    facts.cachedDefault.file = pageFile(paths, facts.cachedDefault.fileName);
}

}  // namespace

HostFacts gatherHost() {
    HostFacts facts;
    gatherNames(facts);
    gatherLibrary(facts);
    gatherFirstRun(facts);
    facts.initialPath = initialPath(facts.image);
    gatherUnknownValues(facts);
    gatherParser(facts);
    gatherLog(facts);
    gatherUpkeep(facts);
    const HostPaths paths = hostPaths(facts);
    facts.updater = look(paths.updater);
    gatherModulesAndPages(facts, paths);
    return facts;
}

}  // namespace jsw::ctl
