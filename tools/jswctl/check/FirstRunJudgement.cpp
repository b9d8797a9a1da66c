#include "PublicLib/text/Text.h"
#include "tools/jswctl/check/Judgement.h"

#include <cstdint>

namespace jsw::ctl {

namespace {

constexpr char kTopic[] = "first run";
constexpr std::uint32_t kNotFound = 2;  // the registry's error for a missing key

std::vector<FileEntry> entriesOfStore(const HostFacts& facts) {
    std::vector<FileEntry> entries;
    for (const FileEntry& entry : facts.firstRun.file.entries) {
        if (isBelow(entry.section, facts.storePath)) entries.push_back(entry);
    }
    return entries;
}

std::string bringIn(const HostFacts& facts) {
    return concat("Store them with 'jswctl install --update \"", facts.hostPath, "\"'");
}

void judgeSections(const HostFacts& facts, Report& report) {
    const auto& sections = facts.firstRun.file.sections;
    const std::string remedy = concat("Start its sections with [", facts.storePath, "\\Settings]");
    if (!facts.firstRun.file.reaches(facts.storePath)) {
        report.error("settings file",
                     concat("no section of ", facts.firstRun.file.path,
                            " is below this host's key; the first one is [",
                            sections.empty() ? "" : sections.front(), "]"),
                     remedy);
        return;
    }
    for (const std::string& section : sections) {
        if (isBelow(section, facts.productRoot)) continue;
        report.warn("settings file",
                    concat("the section [", section, "] does not belong to this host"), remedy);
    }
}

void judgeEntries(const HostFacts& facts, Report& report) {
    for (const FileEntry& entry : facts.firstRun.file.entries) {
        if (entry.hasType()) continue;
        report.warn("settings file",
                    concat("'", entry.name, "=", entry.value, "' in [", entry.section,
                           "] has no type and is not installed"),
                    "Write string: or dword: before the value");
    }
}

/// Values that differ between store and file.
void judgeDifferences(const HostFacts& facts, const std::vector<FileEntry>& entries,
                      Report& report) {
    const bool modules = facts.image.number(setting::kCompleteSoftwareUpdated).value != 0;
    const bool data = facts.image.number(setting::kDataUpdated).value != 0;
    for (const FileEntry& entry : entries) {
        if (!entry.stored || !entry.isNews() ||
            isMachinesOwn(entry, facts.storePath, modules, data)) {
            continue;
        }
        report.note("settings", concat(entry.section, " ", entry.name, " is ", *entry.stored, ", ",
                                       entry.value, " in the settings file"));
    }
}

void judgeInstalled(const HostFacts& facts, Report& report) {
    const std::vector<FileEntry> entries = entriesOfStore(facts);
    std::string missing;
    std::size_t count = 0;
    for (const FileEntry& entry : entries) {
        if (entry.stored || !entry.hasType()) continue;
        missing += concat(count++ == 0 ? "" : ", ", entry.name);
    }
    const std::string& file = facts.firstRun.file.path;
    if (facts.firstRun.isPending) {
        report.warn(
            kTopic,
            concat("is incomplete, or still going on; the next job installs ", file, " again"),
            concat("Start a job, or run 'jswctl install \"", facts.hostPath, "\"'"));
    } else if (count == 0) {
        report.note(kTopic, concat("done; the values of ", file, " are in the registry"));
    } else if (count == entries.size()) {
        report.error(kTopic,
                     concat("did not happen: the settings' key existed before ", file,
                            " could be installed, so no value of the file is in it. A single value "
                            "set earlier, such as a log switch, creates the key"),
                     bringIn(facts));
    } else {
        report.warn(kTopic,
                    concat(count, " of ", entries.size(), " values of ", file,
                           " are not in the registry: ", missing),
                    bringIn(facts));
    }
    judgeDifferences(facts, entries, report);
}

void judgeWithoutFile(const HostFacts& facts, Report& report) {
    const std::string& file = facts.firstRun.file.path;
    if (!facts.firstRun.storeOpens) {
        report.error(
            kTopic,
            concat("there is no settings file ", file,
                   "; the first job creates an empty key and never looks for the file again"),
            "Put the file beside the host before its first job");
    } else if (facts.image.text(setting::kViewModule).source == Source::stored) {
        report.note(kTopic, concat("done; there is no ", file));
    } else {
        report.warn(kTopic,
                    concat("there is no settings file ", file, ", and the store names no modules"),
                    concat("Put the file there. ", bringIn(facts)));
    }
}

/// Keys made by an administrator's first job inherit permissions, which may be too few.
void judgeAccess(const HostFacts& facts, Report& report) {
    const std::vector<std::string>& closed = facts.firstRun.closedKeys;
    if (closed.empty()) return;
    report.warn(
        "access",
        concat(
            "jobs of ordinary users cannot open ", closed.size(),
            closed.size() == 1 ? " key" : " keys",
            " of the settings with all rights and run as if they were empty; the first is HKLM\\",
            closed.front()),
        "Give the users who print full access, or start over with 'jswctl remove' and 'jswctl "
        "install'");
}

}  // namespace

void judgeFirstRun(const HostFacts& facts, Report& report) {
    const FirstRunFacts& run = facts.firstRun;
    judgeAccess(facts, report);
    const bool isRefused = !run.storeOpens && run.storeError != kNotFound;
    if (isRefused) {
        report.error(kTopic,
                     concat("HKLM\\", facts.storePath, " cannot be opened with all rights, error ",
                            run.storeError),
                     "Give the users who print full access to it");
    }
    if (!run.file.exists) {
        if (!isRefused) judgeWithoutFile(facts, report);
        return;
    }
    if (!run.file.parsed) {
        report.error("settings file", concat(run.file.path, " has no sections to install"),
                     "See docs/settings.md for its format");
        return;
    }
    judgeSections(facts, report);
    judgeEntries(facts, report);
    if (run.storeOpens) {
        judgeInstalled(facts, report);
    } else if (!isRefused) {
        report.note(kTopic, concat("the first job will install ", run.file.installable(),
                                   " values of ", run.file.path));
    }
}

}  // namespace jsw::ctl
