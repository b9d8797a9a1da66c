#pragma once

#include "tools/jswctl/Report.h"
#include "tools/jswctl/module/ModuleFacts.h"

namespace jsw::ctl {

/// Whether an existing file can be loaded, judging by the file: readable, a 64-bit library, with
/// all the libraries it needs.
bool isLoadable(const ModuleFacts& facts);

/// Reports what is wrong with a module.
void judgeModule(const ModuleFacts& facts, Report& report);

/// Reports what failed in the module's trial.
void judgeTrial(const ModuleFacts& facts, Report& report);

/// One note for each call of the trial, with its time.
void tellCalls(const ModuleFacts& facts, Report& report);

}  // namespace jsw::ctl
