#pragma once

#include "tools/jswctl/module/Caller.h"
#include "tools/jswctl/module/TrialJob.h"

#include <string>
#include <string_view>
#include <vector>

namespace jsw::ctl {

/// Calls the entry points of a module in the order of a job, except a prompt, which would wait for
/// the user, and an engine's UpdateSettings, which would store counts.
/// @param kind  name of the kind of module
/// @param ids   billboards for a catalog's queries; the page that a view shows
void goThrough(std::string_view kind, const Caller& caller, const TrialJob& job,
               const std::vector<std::string>& ids);

/// Only queries a catalog for the pages of some billboards.
void askForPages(const Caller& caller, const std::vector<std::string>& ids);

}  // namespace jsw::ctl
