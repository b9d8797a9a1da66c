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

constexpr const char* kViewNeeds[] = {"Initialize", "DisplayBillboard", "ShowGui"};
constexpr const char* kCatalogNeeds[] = {"Initialize", "GetBillboardFileName"};
constexpr const char* kRulesNeeds[] = {"InitializeEngine", "IsMoreRules", "EvaluateRule"};
constexpr const char* kLegacyNeeds[] = {"JSWInitEx", "JSWDisplayPrompt"};
constexpr const char* kDeviceNeeds[] = {"PcsInitialize", "PcsGetClientId",
                                        "PcsEnumWindowsPrinters"};

constexpr ModuleKind kKinds[] = {
    {"view", kView, kViewNeeds, "JSWInit answers 0 and there is no job window", true},
    {"catalog", kCatalog, kCatalogNeeds, "no billboard is shown", true},
    {"rules", kRules, kRulesNeeds, "no billboard is chosen for a job", true},
    {"legacy", kLegacy, kLegacyNeeds, "JSWDisplayPrompt asks nobody", false},
    {"device", kDevice, kDeviceNeeds, "nothing is known of real printers and their ink", false},
};

}  // namespace

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
