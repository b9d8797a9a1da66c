#pragma once

#include "tools/jswctl/module/ModuleFacts.h"

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

}  // namespace jsw::ctl
