// The log and the updates.

#include "PublicLib/text/Text.h"
#include "jsw/settings/Settings.h"
#include "jsw/updates/InstalledFile.h"
#include "jsw/updates/UpdateSchedule.h"
#include "tools/jswctl/check/Judgement.h"

#include <ctime>

namespace jsw::ctl {

namespace {

constexpr std::uint64_t kKilobyte = 1024;
constexpr std::uint64_t kLargeLog = 100 * kKilobyte * kKilobyte;

void judgeUpdater(const HostFacts& facts, Report& report) {
    const std::string name = facts.image.text(setting::kUpdaterExecutable).value;
    if (name.empty()) {
        report.note("updates", "no updater is set, so none is started");
    } else if (!isPlainFileName(name)) {
        report.error("updates", concat("the updater's name '", name, "' is not a plain file name"),
                     "Put the file into the module folder and set its name without a path");
    } else if (!facts.updater.exists || facts.updater.isFolder) {
        report.error("updates", concat("there is no updater ", facts.updater.path),
                     "Put it there, or set CheckForUpdates to 0");
    } else {
        report.note("updates", concat("updater ", facts.updater.path));
    }
}

void judgeDate(const HostFacts& facts, Report& report) {
    const EffectiveText date = facts.image.text(setting::kDateLastChecked);
    const std::uint32_t days = facts.image.number(setting::kUpdatesCheckFrequency).value;
    if (date.source == Source::missing && days != 0) {
        report.note("updates", concat("never checked; the first check is due ", days,
                                      " days after the first job"));
        return;
    }
    const bool due = isCheckDue(date.value, days, facts.now, facts.localNow);
    report.note("updates", concat("last check '", date.value, "', every ", days,
                                  " days: ", due ? "due when the next job ends" : "not due yet"));
}

void judgeFlag(const HostFacts& facts, const setting::Number& flag, const char* what,
               Report& report) {
    if (facts.image.number(flag).value != static_cast<std::uint32_t>(UpdateFlag::updated)) return;
    report.note(
        "updates",
        concat(what,
               " of an update come into use with the next job; this check looks at the old ones"));
}

}  // namespace

void judgeLog(const HostFacts& facts, Report& report) {
    const bool on = facts.image.number(setting::kStartLog).value != 0;
    const std::string size = facts.log.exists
                                 ? concat(", ", (facts.logSize + kKilobyte - 1) / kKilobyte, " KB")
                                 : " (not there yet)";
    report.note("log", concat(facts.log.path, size,
                              on ? ", switched on"
                                 : ", errors only; Logger startLog 1 switches all lines on"));
    if (facts.logSize > kLargeLog) {
        report.warn("log", "the log is large, and only grows",
                    concat("Rename it with 'jswctl log --rotate \"", facts.hostPath, "\"'"));
    }
    if (facts.log.isFolder || facts.logError != 0) {
        report.warn(
            "log",
            concat(facts.log.path, " cannot be written",
                   facts.log.isFolder ? ": it is a folder"
                                      : concat(", error ", facts.logError).c_str()),
            "Give the users who print permission to write it; otherwise failures remain unknown");
    }
}

void judgeUpdates(const HostFacts& facts, Report& report) {
    if (facts.image.number(setting::kCheckForUpdates).value == 0) {
        report.note("updates", "switched off (CheckForUpdates is 0)");
        return;
    }
    judgeDate(facts, report);
    judgeUpdater(facts, report);
    judgeFlag(facts, setting::kCompleteSoftwareUpdated, "modules", report);
    judgeFlag(facts, setting::kDataUpdated, "billboard data", report);
}

}  // namespace jsw::ctl
