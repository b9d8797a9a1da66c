#pragma once

#include "tools/jswctl/log/LoggedJob.h"
#include "tools/jswctl/log/ReadLog.h"
#include "tools/jswctl/log/Statistics.h"

#include <string>

namespace jsw::ctl::log {

/// A job as text, several lines.
std::string jobAsText(const LoggedJob& job);

/// The summary: the file, the time in modules, the slowest calls and all problems with cause and
/// remedy.
std::string summaryAsText(const Totals& totals, const Statistics& statistics);

/// The table of the log's problem lines, in Markdown.
std::string knownTextsAsMarkdown();

}  // namespace jsw::ctl::log
