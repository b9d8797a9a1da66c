#pragma once

#include "tools/jswctl/Report.h"
#include "tools/jswctl/check/HostFacts.h"

namespace jsw::ctl {

/// Reports everything about a host, in the order of a job.
void judgeHost(const HostFacts& facts, Report& report);

/// The parts of it.
void judgeNames(const HostFacts& facts, Report& report);
void judgeLibrary(const HostFacts& facts, Report& report);
void judgeFirstRun(const HostFacts& facts, Report& report);
void judgeSettings(const HostFacts& facts, Report& report);
void judgeParser(const HostFacts& facts, Report& report);
void judgePages(const HostFacts& facts, Report& report);
void judgeLog(const HostFacts& facts, Report& report);
void judgeUpdates(const HostFacts& facts, Report& report);

}  // namespace jsw::ctl
