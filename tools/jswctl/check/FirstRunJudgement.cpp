#include "PublicLib/ini/IniText.h"
#include "PublicLib/text/Text.h"
#include "tools/jswctl/check/Judgement.h"

#include <algorithm>
#include <cstdint>

namespace jsw::ctl {

namespace {

constexpr char kTopic[] = "first run";
constexpr std::uint32_t kNotFound = 2;  // the registry's answer for a key that is not there

/// Whether a path is a key or lies below it, letter case aside.
bool isBelow(const std::string& path, const std::string& key) {
    return equalsIgnoringCase(path.substr(0, key.size()), key) &&
           (path.size() == key.size() || path[key.size()] == '\\');
}

std::vector<FileEntry> entriesOfStore(const HostFacts& facts) {
    std::vector<FileEntry> entries;
    for (const FileEntry& entry : facts.firstRun.entries) {
        if (isBelow(entry.section, facts.storePath)) entries.push_back(entry);
    }
    return entries;
}

std::string again(const HostFacts& facts) {
    return concat("Take the store away with 'jswctl remove \"", facts.hostPath,
                  "\"' and install the file with 'jswctl install'");
}

void judgeSections(const HostFacts& facts, Report& report) {
    const auto& sections = facts.firstRun.sections;
    const bool reachesStore =
        std::any_of(sections.begin(), sections.end(),
                    [&](const std::string& section) { return isBelow(section, facts.storePath); });
    const std::string remedy = concat("Begin its sections with [", facts.storePath, "\\Settings]");
    if (!reachesStore) {
        report.error("settings file",
                     concat("no section of ", facts.firstRun.settingsFile,
                            " lies below this host's store; the first one is [",
                            sections.empty() ? "" : sections.front(), "]"),
                     remedy);
        return;
    }
    for (const std::string& section : sections) {
        if (isBelow(section, facts.productRoot)) continue;
        report.warn("settings file", concat("the section [", section, "] is not this host's"),
                    remedy);
    }
}

void judgeEntries(const HostFacts& facts, Report& report) {
    for (const FileEntry& entry : facts.firstRun.entries) {
        if (splitTypedValue(entry.value).type != IniValueType::unknown) continue;
        report.warn("settings file",
                    concat("'", entry.name, "=", entry.value, "' in [", entry.section,
                           "] has no type and is not installed"),
                    "Write string: or dword: before the value");
    }
}

void judgeInstalled(const HostFacts& facts, Report& report) {
    const std::vector<FileEntry> entries = entriesOfStore(facts);
    const auto missing = static_cast<std::size_t>(
        std::count_if(entries.begin(), entries.end(),
                      [](const FileEntry& entry) { return !entry.isInRegistry; }));
    const std::string& file = facts.firstRun.settingsFile;
    if (facts.firstRun.isPending) {
        report.warn(kTopic,
                    concat("was cut off, unless it is going on now; the next job installs ", file,
                           " once more"),
                    concat("Let a job begin, or run 'jswctl install \"", facts.hostPath, "\"'"));
    } else if (entries.empty() || missing == 0) {
        report.note(kTopic, concat("has been; the values of ", file, " are in the store"));
    } else if (missing == entries.size()) {
        report.error(kTopic,
                     concat("was missed: the store was there before ", file,
                            " could be installed, so no value of the file is in it. A single "
                            "value set beforehand, such as a log switch, is enough for that"),
                     again(facts));
    } else {
        report.warn(kTopic,
                    concat(missing, " of ", entries.size(), " values of ", file,
                           " are not in the store; a file changed later is not installed again"),
                    again(facts));
    }
}

}  // namespace

void judgeFirstRun(const HostFacts& facts, Report& report) {
    const FirstRunFacts& run = facts.firstRun;
    if (!run.storeOpens && run.storeError != kNotFound) {
        report.error(kTopic,
                     concat("HKLM\\", facts.storePath, " cannot be opened with all rights, error ",
                            run.storeError),
                     "Give the users who print full access to it");
    } else if (!run.fileExists) {
        if (run.storeOpens) {
            report.note(kTopic, concat("has been; there is no ", run.settingsFile));
        } else {
            report.error(kTopic,
                         concat("there is no settings file ", run.settingsFile,
                                "; the first job makes an empty store and never looks for it "
                                "again"),
                         "Put the file beside the host before its first job");
        }
        return;
    }
    if (!run.fileExists) return;
    if (!run.fileParsed) {
        report.error("settings file", concat(run.settingsFile, " has no sections to install"),
                     "See docs/settings.md for how it is written");
        return;
    }
    judgeSections(facts, report);
    judgeEntries(facts, report);
    if (run.storeOpens) {
        judgeInstalled(facts, report);
    } else if (run.storeError == kNotFound) {
        report.note(kTopic, concat("the first job will install ", run.entries.size(), " values of ",
                                   run.settingsFile));
    }
}

}  // namespace jsw::ctl
