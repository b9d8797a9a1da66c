#include "PublicLib/win/Paths.h"
#include "tools/jswctl/check/HostFacts.h"

namespace jsw::ctl {

namespace {

std::string orElse(const std::string& text, const std::string& fallback) {
    return text.empty() ? fallback : text;
}

/// The first job sets a missing folder before it loads anything.
std::string folderOf(const HostFacts& facts, const setting::Text& setting) {
    const EffectiveText folder = facts.image.text(setting);
    return isSet(folder.source) && !folder.value.empty() ? folder.value : facts.initialPath;
}

std::string modulePath(const HostFacts& facts, const std::string& folder,
                       const setting::Text& module) {
    const EffectiveText name = facts.image.text(module);
    return joinPath(folder, isSet(name.source) && !name.value.empty()
                                ? name.value
                                : facts.localId + module.defaultValue);
}

}  // namespace

HostPaths hostPaths(const HostFacts& facts) {
    HostPaths paths;
    paths.dataPath = folderOf(facts, setting::kDataPath);
    if (!paths.dataPath.empty() && paths.dataPath.back() == '\\') paths.dataPath.pop_back();
    paths.dllPath = orElse(folderOf(facts, setting::kDllPath), setting::kDllPath.defaultValue);
    paths.view = modulePath(facts, paths.dllPath, setting::kViewModule);
    paths.catalog = modulePath(facts, paths.dllPath, setting::kCatalogModule);
    paths.rules = modulePath(facts, paths.dllPath, setting::kRulesEngineModule);
    paths.legacy = joinPath(facts.driverFolder, facts.localId + "jswo.dll");
    const EffectiveText device = facts.image.text(setting::kPcsClient);
    paths.device = isSet(device.source) ? device.value : defaultDeviceClient(facts);
    const std::string updater = facts.image.text(setting::kUpdaterExecutable).value;
    if (!updater.empty()) paths.updater = joinPath(paths.dllPath, updater);
    return paths;
}

std::string defaultDeviceClient(const HostFacts& facts) {
    return facts.localId + "Comc.dll";
}

}  // namespace jsw::ctl
