#pragma once

#include "tools/jswctl/module/Caller.h"
#include "tools/jswctl/module/TrialJob.h"

#include <string>
#include <string_view>
#include <vector>

namespace jsw::ctl {

/// Goes through the entry points of a module in the order in which a job calls them, but for a
/// prompt, which would wait for the user, and an engine's UpdateSettings, which it keeps.
/// @param kind  name of the kind of module
/// @param ids   billboards that a catalog is asked for; the page that a view shows
void goThrough(std::string_view kind, const Caller& caller, const TrialJob& job,
               const std::vector<std::string>& ids);

/// Asks a catalog for the pages of some billboards, and nothing else.
void askForPages(const Caller& caller, const std::vector<std::string>& ids);

}  // namespace jsw::ctl
