#include "tools/jswctl/module/ModuleJudgement.h"

#include "PublicLib/text/Text.h"
#include "tools/jswctl/NearestName.h"

#include <algorithm>
#include <cstdio>

namespace jsw::ctl {

namespace {

constexpr double kSlowMilliseconds = 500;

std::string topicOf(const ModuleFacts& facts) {
    return std::string(facts.kind->topic);
}

std::string hexadecimal(std::uint32_t code) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08X", code);
    return text;
}

template <class Names>
bool holds(const Names& names, std::string_view name) {
    return std::any_of(names.begin(), names.end(),
                       [&](std::string_view known) { return known == name; });
}

const Need* findNeed(const ModuleKind& kind, std::string_view name) {
    const auto need = std::find_if(kind.needs.begin(), kind.needs.end(),
                                   [&](const Need& one) { return one.entryPoint == name; });
    return need == kind.needs.end() ? nullptr : &*need;
}

std::string listed(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += concat(text.empty() ? "" : ", ", name);
    return text;
}

/// Whether a job goes on without the module depends on its kind.
void cannotBeUsed(const ModuleFacts& facts, Report& report, const std::string& what,
                  const std::string& remedy) {
    const Severity severity = facts.kind->stopsJob ? Severity::error : Severity::warning;
    report.add(severity, topicOf(facts), concat(what, "; ", facts.kind->without), remedy);
}

/// "a 32-bit library" or the like for a file that is not a 64-bit library.
std::string wrongKindOfFile(const PeFile& file) {
    if (!file.isDll) return "a program, not a library";
    if (file.machine == kMachineX86) return "a 32-bit library, not a 64-bit one";
    if (file.machine != kMachineX64) {
        return concat("a library for another processor (", hexadecimal(file.machine), ")");
    }
    return {};
}

bool isRightKind(const ModuleFacts& facts) {
    return facts.exists && !facts.isFolder && facts.unreadable.empty() &&
           facts.file.problem.empty() && wrongKindOfFile(facts.file).empty();
}

void judgeFile(const ModuleFacts& facts, Report& report) {
    const std::string& path = facts.fullPath;
    if (!facts.exists) {
        cannotBeUsed(facts, report, concat("there is no file ", path),
                     "Put the module there, or correct its name and folder in the settings");
    } else if (facts.isFolder) {
        cannotBeUsed(facts, report, concat(path, " is a folder"), "Name the module's file");
    } else if (!facts.unreadable.empty()) {
        cannotBeUsed(facts, report, concat(path, " cannot be read: ", facts.unreadable),
                     "Give the users who print permission to read it");
    } else if (!facts.file.problem.empty()) {
        cannotBeUsed(facts, report, concat(path, " cannot be loaded: ", facts.file.problem),
                     "Build or copy it again");
    } else if (const std::string wrong = wrongKindOfFile(facts.file); !wrong.empty()) {
        cannotBeUsed(facts, report, concat(path, " is ", wrong),
                     "Build it as a dynamic library for x86-64");
    }
    for (const MissingLibrary& library : facts.missing) {
        cannotBeUsed(
            facts, report,
            concat(path, " cannot be loaded: ", library.neededBy, " needs ", library.name,
                   ", which is not found"),
            concat("Put ", library.name, " into the host's folder, or link it statically"));
    }
}

/// The kind whose entry points a file has, if it is not the kind that was expected.
const ModuleKind* otherKind(const ModuleFacts& facts) {
    const auto isOf = [&](const ModuleKind& kind) {
        return std::ranges::all_of(facts.file.exports, [&](const std::string& name) {
            return holds(kind.entryPoints, name);
        });
    };
    const auto other = std::ranges::find_if(moduleKinds(), isOf);
    return other == moduleKinds().end() || isOf(*facts.kind) ? nullptr : &*other;
}

void judgeEntryPoints(const ModuleFacts& facts, Report& report) {
    if (const ModuleKind* other = otherKind(facts); other != nullptr) {
        return cannotBeUsed(facts, report, concat(facts.fullPath, " is a ", other->topic),
                            concat("Put a ", facts.kind->topic, " there"));
    }
    std::vector<std::string> unknown;
    for (const std::string& name : facts.file.exports) {
        if (!holds(facts.kind->entryPoints, name)) unknown.push_back(name);
    }
    if (unknown.size() == facts.file.exports.size()) {
        return cannotBeUsed(
            facts, report,
            concat(facts.fullPath, " exports none of the entry points of a ", facts.kind->topic),
            concat("Export them, undecorated; the first one is ", facts.kind->entryPoints.front()));
    }
    std::vector<std::string> absent;
    for (const char* name : facts.kind->entryPoints) {
        if (holds(facts.file.exports, name)) continue;
        const std::string nearest = nearestName(name, unknown);
        if (!nearest.empty()) {
            std::erase(unknown, nearest);
            report.error(topicOf(facts),
                         concat("the entry point ", name, " is missing; the module has ", nearest),
                         concat("Export it as ", name, ", undecorated"));
        } else if (const Need* need = findNeed(*facts.kind, name); need != nullptr) {
            report.add(need->mayLack ? Severity::warning : Severity::error, topicOf(facts),
                       concat("the entry point ", name, " is missing: ", need->loss),
                       "Export it, undecorated");
        } else {
            absent.emplace_back(name);
        }
    }
    if (!absent.empty()) {
        report.note(topicOf(facts),
                    concat("entry points it does without, which is allowed: ", listed(absent)));
    }
    if (!unknown.empty()) {
        report.note(topicOf(facts),
                    concat("exports that the library does not know: ", listed(unknown)));
    }
}

void judgeCall(const ModuleFacts& facts, const ModuleCall& call, Report& report) {
    if (!call.ended) return;
    if (call.answer == kException) {
        report.error(topicOf(facts), concat(call.name, " raised a C++ exception"),
                     "Catch it in the module; the library treats it as an empty answer");
    }
    if (call.milliseconds >= kSlowMilliseconds) {
        report.warn(
            topicOf(facts),
            concat(call.name, " took ", static_cast<std::uint32_t>(call.milliseconds), " ms"),
            "The driver waits for it; do such work on a thread of the module");
    }
}

}  // namespace

bool isLoadable(const ModuleFacts& facts) {
    return isRightKind(facts) && facts.missing.empty();
}

void judgeTrial(const ModuleFacts& facts, Report& report) {
    const ModuleTrial& trial = facts.trial;
    if (!trial.started && trial.problem.empty()) return;
    const std::string last = trial.calls.empty() ? "its start" : trial.calls.back().name;
    if (trial.timedOut) {
        report.error(topicOf(facts), concat("it does not return from ", last),
                     "The job would wait for ever; look for a loop, lock or wait in the module");
    } else if (!trial.problem.empty()) {
        cannotBeUsed(facts, report, trial.problem, "Load it in a debugger to see why");
    } else if (trial.exitCode != 0) {
        report.error(topicOf(facts),
                     concat("it crashes in ", last, " (", hexadecimal(trial.exitCode), ")"),
                     "The host would crash with it; run the module in a debugger");
    } else if (!trial.finished) {
        report.error(topicOf(facts), concat("it ends the process in ", last),
                     "The host would end with it; a module must not call exit()");
    }
    for (const std::string& fault : trial.faults) {
        report.error(topicOf(facts), fault, "See its header on memory and calls");
    }
    for (const ModuleCall& call : trial.calls) judgeCall(facts, call, report);
}

void judgeModule(const ModuleFacts& facts, Report& report) {
    report.note(topicOf(facts), concat("file ", facts.fullPath));
    judgeFile(facts, report);
    if (isRightKind(facts)) judgeEntryPoints(facts, report);
    judgeTrial(facts, report);
}

void tellCalls(const ModuleFacts& facts, Report& report) {
    const std::vector<ModuleCall>& calls = facts.trial.calls;
    for (auto call = calls.begin(); call != calls.end(); ++call) {
        const auto isSame = [&](const ModuleCall& other) {
            return other.ended && other.name == call->name && other.answer == call->answer;
        };
        if (!call->ended || std::any_of(calls.begin(), call, isSame)) continue;
        const auto times = std::count_if(call, calls.end(), isSame);
        char time[32];
        std::snprintf(time, sizeof time, "%.1f ms", call->milliseconds);
        report.note(topicOf(facts),
                    concat(call->name, ": ", time, call->answer.empty() ? "" : ", returned ",
                           call->answer, times == 1 ? "" : concat(", ", times, " times")));
    }
}

}  // namespace jsw::ctl
