#pragma once

#include "tools/jswctl/log/Job.h"
#include "tools/jswctl/log/ReadLog.h"
#include "tools/jswctl/log/Statistics.h"

#include <string>

namespace jsw::ctl::log {

/// A job in words, several lines.
std::string jobAsText(const Job& job);

/// What there is to say at the end: the file, the time in modules, the slowest calls and all
/// trouble with cause and remedy.
std::string summaryAsText(const Totals& totals, const Statistics& statistics);

/// The table of what the log says of trouble, in Markdown.
std::string knownTextsAsMarkdown();

}  // namespace jsw::ctl::log
