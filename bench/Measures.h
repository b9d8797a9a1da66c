#pragma once

#include "bench/Report.h"

#include <cstdint>
#include <string>

/// The measures by topic. Each adds its rows to the report.
namespace jsw::bench {

/// A factor for the number of rounds of each measure.
using Thoroughness = std::uint32_t;

void measureDisabledTrace(Report& report, Thoroughness times);
void measureLogLine(Report& report, Thoroughness times);
void measureLogProcesses(Report& report, Thoroughness times);
void measureSettings(Report& report, Thoroughness times);
void measureCacheRecord(Report& report, Thoroughness times);
void measureMacros(Report& report, Thoroughness times);
void measureJob(Report& report, Thoroughness times);

/// Writes lines to the log, in the child processes of measureLogProcesses().
/// @param name  of the run, from the command line
void writeLogAsChild(const std::string& name);

}  // namespace jsw::bench
