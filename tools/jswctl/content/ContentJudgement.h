#pragma once

#include "tools/jswctl/Report.h"
#include "tools/jswctl/content/ContentFacts.h"

namespace jsw::ctl {

/// Says what of a data folder will not do what its author wants: catalog, pages, rules.
void judgeContent(const ContentFacts& facts, Report& report);

}  // namespace jsw::ctl
