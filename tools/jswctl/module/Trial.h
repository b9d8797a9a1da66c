#pragma once

#include "tools/jswctl/module/ModuleFacts.h"
#include "tools/jswctl/module/TrialJob.h"

#include <string>
#include <vector>

namespace jsw::ctl {

/// What a trial does with a module that it has loaded.
enum class TrialScope {
    load,       ///< nothing more
    questions,  ///< a catalog is asked for some billboards' pages
    calls,      ///< its entry points are gone through as a job does
};

/// How a module is tried.
struct TrialPlan {
    TrialScope scope = TrialScope::load;
    std::string hostFolder;  ///< where Windows looks for libraries besides
    std::string hostName;    ///< file name that the process takes, because modules look for the
                             ///< settings of the program they run in; empty: that of jswctl
    std::vector<std::string> billboardIds;  ///< that a catalog is asked for; or a view's page
    TrialJob job;
    unsigned seconds = 20;  ///< until a module that does not come back is ended
};

/// Uses a module in a process of its own, so that a module that crashes, ends the process or never
/// comes back does so there. That process never outlives this one.
ModuleTrial tryModule(const ModuleKind& kind, const std::string& path, const TrialPlan& plan);

}  // namespace jsw::ctl
