#include "tools/jswctl/check/Judgement.h"

#include "PublicLib/os/ProductLines.h"
#include "PublicLib/text/Text.h"
#include "jsw/XmlParserLibrary.h"
#include "tools/jswctl/NearestName.h"
#include "tools/jswctl/check/SettingRows.h"
#include "tools/jswctl/module/ModuleJudgement.h"

namespace jsw::ctl {

namespace {

bool isRelative(const std::string& path) {
    const bool hasDrive = path.size() > 2 && path[1] == ':' && path[2] == '\\';
    return !hasDrive && !path.starts_with("\\\\");
}

std::string version(std::uint32_t halves) {
    return concat(halves >> 16, ".", halves & 0xFFFF);
}

std::string prefixes() {
    std::string all;
    for (const ProductLine& line : productLines()) {
        all += concat(all.empty() ? "" : " ", line.prefix);
    }
    return all;
}

void judgeRelative(const HostFacts& facts, const setting::Text& folder, Report& report) {
    const EffectiveText path = facts.image.text(folder);
    if (!isSet(path.source) || path.value.empty() || !isRelative(path.value)) return;
    report.warn(
        "settings",
        concat(folder.name, " '", path.value,
               "' is relative to the current folder of the process, here ", facts.currentFolder),
        "Use a full path, or let the host set its current folder");
}

void judgePage(const PageFacts& page, const char* purpose, Severity severity, Report& report) {
    const std::string topic = concat("billboard ", page.id);
    if (!page.wasAsked) return;
    if (page.fileName.empty()) {
        report.add(severity, topic, concat("the catalog names no file for it: ", purpose),
                   concat("Let the catalog answer GetBillboardFileName(\"", page.id,
                          "\"); 'jswctl content' checks the files of the sample catalog"));
    } else if (!page.file.exists) {
        report.add(severity, topic, concat("there is no file ", page.file.path, ": ", purpose),
                   "Put the page there, or correct the data folder or the catalog");
    } else {
        report.note(topic, concat("page ", page.file.path));
    }
}

/// The job shows the page in the registry, whatever the catalog says now.
void judgeCachedDefault(const HostFacts& facts, Report& report) {
    const PageFacts& kept = facts.cachedDefault;
    if (kept.fileName.empty()) return;
    constexpr char kRemedy[] =
        "Empty FileName in Settings\\Controller\\DefaultBillboard; the next job then asks the "
        "catalog again";
    if (!kept.file.exists) {
        report.error("default page",
                     concat("the page stored by an earlier job is missing: ", kept.file.path),
                     kRemedy);
    } else if (!facts.pages.empty() && facts.pages.front().wasAsked &&
               facts.pages.front().fileName != kept.fileName) {
        report.warn("default page",
                    concat("jobs start with ", kept.fileName,
                           ", stored by an earlier job; the catalog now says '",
                           facts.pages.front().fileName, "'"),
                    kRemedy);
    }
}

}  // namespace

void judgeNames(const HostFacts& facts, Report& report) {
    report.note("host", facts.hostPath);
    const std::string line = facts.productLine.empty()
                                 ? concat("no product line (", prefixes(), ")")
                                 : "product line " + facts.productLine;
    report.note("names",
                concat("id ", facts.localId, ", ", line, ", settings in HKLM\\", facts.storePath));
}

void judgeLibrary(const HostFacts& facts, Report& report) {
    judgeModule(facts.library, report);
    if (!facts.library.exists || facts.libraryVersion == facts.toolVersion) return;
    report.warn(
        "jsw.dll",
        concat("its version is ", facts.libraryVersion.empty() ? "none" : facts.libraryVersion,
               ", jswctl's is ", facts.toolVersion),
        "Install both from the same package");
}

void judgeSettings(const HostFacts& facts, Report& report) {
    for (const SettingRow& row : settingRows(facts)) {
        report.setting(row);
        if (row.source == Source::wrongType) {
            report.error("settings",
                         concat(row.key, " ", row.name, " is not stored as a ", row.type,
                                "; jobs use the default"),
                         concat("Store it as a ", row.type));
        } else if (row.source == Source::unreadable) {
            report.error("settings", concat(row.key, " ", row.name, " cannot be read"),
                         "Give the users who print full access to the key");
        }
    }
    for (const UnknownValue& value : facts.unknownValues) {
        const std::string nearest = nearestName(value.name, settingNames(value.key));
        if (nearest.empty()) continue;
        report.warn("settings",
                    concat(value.key, " ", value.name, " is not a value that the library knows"),
                    concat("Did you mean ", nearest, "?"));
    }
    judgeRelative(facts, setting::kDllPath, report);
    judgeRelative(facts, setting::kDataPath, report);
}

void judgeParser(const HostFacts& facts, Report& report) {
    constexpr char kRemedy[] = "Install MSXML 3.0; until then JSWInit returns 0";
    if (!facts.parserRegistered) {
        report.error("XML parser", "MSXML 3.0 is not registered (MSXML2.DomDocument.3.0)", kRemedy);
    } else if (facts.parserVersion == 0) {
        report.error("XML parser", "msxml3.dll is missing in the system folder, or has no version",
                     kRemedy);
    } else if (facts.parserVersion < kMinXmlParserVersion) {
        report.error("XML parser",
                     concat("msxml3.dll has version ", version(facts.parserVersion), "; version ",
                            version(kMinXmlParserVersion), " or later is needed"),
                     kRemedy);
    } else {
        report.note("XML parser", concat("msxml3.dll ", version(facts.parserVersion)));
    }
}

void judgePages(const HostFacts& facts, Report& report) {
    if (!facts.dataFolder.isFolder) {
        report.error("data folder", concat("there is no folder ", facts.dataFolder.path),
                     "Put the billboard data there, or correct DataPath");
    } else {
        report.note("data folder", facts.dataFolder.path);
    }
    judgeCachedDefault(facts, report);
    for (const PageFacts& page : facts.pages) {
        const bool isFirst = &page == &facts.pages.front();
        judgePage(page,
                  isFirst ? "the window starts without a page"
                          : "the ink status action does "
                            "nothing",
                  isFirst ? Severity::error : Severity::warning, report);
    }
    report.note("history",
                concat(facts.historySize, " of ",
                       facts.image.number(setting::kHistoryMaxSize).value, " billboards"));
}

void judgeHost(const HostFacts& facts, Report& report) {
    judgeNames(facts, report);
    judgeLibrary(facts, report);
    judgeFirstRun(facts, report);
    judgeSettings(facts, report);
    judgeParser(facts, report);
    for (const ModuleFacts& module : facts.modules) judgeModule(module, report);
    judgePages(facts, report);
    judgeLog(facts, report);
    judgeUpdates(facts, report);
}

}  // namespace jsw::ctl
