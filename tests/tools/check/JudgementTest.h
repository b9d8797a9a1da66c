#pragma once

#include "PublicLib/text/Text.h"
#include "tools/jswctl/Report.h"
#include "tools/jswctl/module/ModuleFacts.h"

#include <algorithm>
#include <string>

namespace jsw::ctl {

/// A correct module.
inline ModuleFacts goodModule(const ModuleKind& kind) {
    ModuleFacts facts;
    facts.kind = &kind;
    facts.fullPath = "C:\\m\\module.dll";
    facts.exists = true;
    facts.file.machine = kMachineX64;
    facts.file.isDll = true;
    facts.file.exports.assign(facts.kind->entryPoints.begin(), facts.kind->entryPoints.end());
    facts.trial.started = facts.trial.finished = true;
    facts.trial.calls = {{"LoadLibrary", true, 1, ""}};
    return facts;
}

/// Whether a finding of this severity contains the text, its remedy after ". ".
inline bool has(const Report& report, Severity severity, const std::string& text) {
    return std::any_of(
        report.findings().begin(), report.findings().end(), [&](const Finding& finding) {
            return finding.severity == severity &&
                   concat(finding.topic, ": ", finding.text, ". ", finding.remedy).find(text) !=
                       std::string::npos;
        });
}

}  // namespace jsw::ctl
