#pragma once

#include "tools/jswctl/Report.h"
#include "tools/jswctl/content/ContentFacts.h"

namespace jsw::ctl {

/// Reports mistakes in a data folder: catalog, pages, rules.
void judgeContent(const ContentFacts& facts, Report& report);

}  // namespace jsw::ctl
