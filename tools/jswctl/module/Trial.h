#pragma once

#include "tools/jswctl/module/ModuleFacts.h"
#include "tools/jswctl/module/TrialJob.h"

#include <string>
#include <vector>

namespace jsw::ctl {

/// What a trial does with a loaded module.
enum class TrialScope {
    load,       ///< nothing more
    questions,  ///< queries a catalog for some billboards' pages
    calls,      ///< calls its entry points as a job does
};

/// The parameters of a trial.
struct TrialPlan {
    TrialScope scope = TrialScope::load;
    std::string hostFolder;  ///< additional search folder for libraries
    std::string hostName;    ///< file name that the process takes, because modules look for the
                             ///< settings of the program they run in; empty: that of jswctl
    std::vector<std::string> billboardIds;  ///< for a catalog's queries; or a view's page
    TrialJob job;
    unsigned seconds = 20;  ///< timeout
};

/// Uses a module in a separate process, which the module may crash, end or block. That process
/// never outlives this one.
ModuleTrial tryModule(const ModuleKind& kind, const std::string& path, const TrialPlan& plan);

}  // namespace jsw::ctl
