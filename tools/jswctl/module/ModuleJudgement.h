#pragma once

#include "tools/jswctl/Report.h"
#include "tools/jswctl/module/ModuleFacts.h"

namespace jsw::ctl {

/// Whether a file that is there can be loaded as far as it can be told from the file: readable, a
/// 64-bit library, with all the libraries it needs.
bool isLoadable(const ModuleFacts& facts);

/// Says what is wrong with a module, or that nothing is.
void judgeModule(const ModuleFacts& facts, Report& report);

/// Says what went wrong when the module was tried.
void judgeTrial(const ModuleFacts& facts, Report& report);

/// One note for each call that the trial has made, with its time.
void tellCalls(const ModuleFacts& facts, Report& report);

}  // namespace jsw::ctl
