#pragma once

#include "tools/jswctl/module/ModuleFacts.h"

#include <string>
#include <string_view>

namespace jsw::ctl {

/// The reports of the process that tests a module: one JSON object per line, each written before
/// the next step, so that reports survive a crash.
namespace trialline {

std::string begin(const std::string& call);
std::string end(double milliseconds, const std::string& answer);
std::string problem(const std::string& text);
std::string fault(const std::string& text);
std::string finished();

}  // namespace trialline

/// Evaluates one line; ignores any other text.
void takeTrialLine(std::string_view line, ModuleTrial& trial);

}  // namespace jsw::ctl
