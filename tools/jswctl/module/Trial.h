#pragma once

#include "tools/jswctl/module/ModuleFacts.h"

#include <string>
#include <vector>

namespace jsw::ctl {

/// What a trial does with a module that it has loaded.
enum class TrialScope {
    load,       ///< nothing more
    questions,  ///< a catalog is asked for some billboards' pages
    calls,      ///< every entry point that shows and changes nothing is called
};

/// How a module is tried.
struct TrialPlan {
    TrialScope scope = TrialScope::load;
    std::string hostFolder;  ///< where Windows looks for libraries besides
    std::string hostName;    ///< file name that the process takes, because modules look for the
                             ///< settings of the program they run in; empty: that of jswctl
    std::vector<std::string> billboardIds;  ///< that a catalog is asked for
};

/// Uses a module in a process of its own, so that a module that crashes, ends the process or never
/// comes back does so there.
ModuleTrial tryModule(const ModuleKind& kind, const std::string& path, const TrialPlan& plan);

}  // namespace jsw::ctl
