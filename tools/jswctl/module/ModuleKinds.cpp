#include "tools/jswctl/module/ModuleKinds.h"

#include <jsw/catalog.h>
#include <jsw/device.h>
#include <jsw/legacy.h>
#include <jsw/rules.h>
#include <jsw/view.h>

#include <algorithm>

namespace jsw::ctl {

namespace {

#define JSWCTL_NAME(name, type) #name,
constexpr const char* kView[] = {JSW_VIEW_ENTRY_POINTS(JSWCTL_NAME)};
constexpr const char* kCatalog[] = {JSW_CATALOG_ENTRY_POINTS(JSWCTL_NAME)};
constexpr const char* kRules[] = {JSW_RULES_ENTRY_POINTS(JSWCTL_NAME)};
constexpr const char* kLegacy[] = {JSW_LEGACY_ENTRY_POINTS(JSWCTL_NAME)};
constexpr const char* kDevice[] = {JSW_DEVICE_ENTRY_POINTS(JSWCTL_NAME)};
#undef JSWCTL_NAME

constexpr Need kViewNeeds[] = {
    {"DisplayBillboard", "no page is shown", true},
    {"ShowGui", "no window appears, unless the view does without it", true}};
constexpr Need kCatalogNeeds[] = {
    {"Initialize", "the catalog cannot allocate what it returns"},
    {"GetBillboardFileName", "no page is found and no billboard is shown"}};
constexpr Need kRulesNeeds[] = {{"InitializeEngine", "no rule is evaluated"},
                                {"IsMoreRules", "no rule is evaluated"},
                                {"EvaluateRule", "no billboard is chosen"}};
constexpr Need kLegacyNeeds[] = {{"JSWInitEx", "no prompt is shown"},
                                 {"JSWDisplayPrompt", "no prompt is shown"}};
constexpr Need kDeviceNeeds[] = {{"PcsInitialize", "printers are unknown"},
                                 {"PcsGetClientId", "printers are unknown"},
                                 {"PcsEnumWindowsPrinters", "no printer is found"}};

constexpr ModuleKind kKinds[] = {
    {"view", "view module", kView, kViewNeeds, "JSWInit returns 0 and no job window appears", true},
    {"catalog", "catalog module", kCatalog, kCatalogNeeds, "no billboard is shown", true},
    {"rules", "rules module", kRules, kRulesNeeds, "no billboard is chosen for a job", true},
    {"legacy", "legacy module", kLegacy, kLegacyNeeds, "JSWDisplayPrompt shows nothing", false},
    {"device", "device module", kDevice, kDeviceNeeds, "real printers and their ink are unknown",
     false},
};

constexpr const char* kLibrary[] = {"JSWInit",          "JSWTerminate",    "JSWUpdateInfo",
                                    "JSWDisplayPrompt", "JSWPostDlgMsg",   "JSWFilterDllMsg",
                                    "JSWGetAPIVersion", "JSWGetWindowHwnd"};
constexpr ModuleKind kLibraryKind = {
    "jsw",
    "jsw.dll",
    kLibrary,
    {},
    "the host has no job window, unless it loads jsw.dll from elsewhere",
    false};

}  // namespace

const ModuleKind& libraryKind() {
    return kLibraryKind;
}

std::span<const ModuleKind> moduleKinds() {
    return kKinds;
}

const ModuleKind* findModuleKind(std::string_view name) {
    const auto* kind = std::find_if(std::begin(kKinds), std::end(kKinds),
                                    [&](const ModuleKind& known) { return known.name == name; });
    return kind == std::end(kKinds) ? nullptr : kind;
}

std::string moduleKindNames() {
    std::string names;
    for (const ModuleKind& kind : kKinds) {
        if (!names.empty()) names += ", ";
        names += kind.name;
    }
    return names;
}

}  // namespace jsw::ctl
