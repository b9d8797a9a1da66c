#pragma once

#include "tools/jswctl/content/ContentFacts.h"

namespace jsw::ctl {

/// Reads the catalog, the rules and all pages of a data folder.
ContentFacts gatherContent(const std::string& folder);

}  // namespace jsw::ctl
