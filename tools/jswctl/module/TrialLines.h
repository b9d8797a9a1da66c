#pragma once

#include "tools/jswctl/module/ModuleFacts.h"

#include <string>
#include <string_view>

namespace jsw::ctl {

/// How the process that tries a module tells what it does: one JSON object a line, each written
/// before the next step, so that what was told survives a crash.
namespace trialline {

std::string begin(const std::string& call);
std::string end(double milliseconds, const std::string& answer);
std::string problem(const std::string& text);
std::string fault(const std::string& text);
std::string finished();

}  // namespace trialline

/// Takes one line into account; what is no line of the above is passed over.
void takeTrialLine(std::string_view line, ModuleTrial& trial);

}  // namespace jsw::ctl
