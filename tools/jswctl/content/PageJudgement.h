#pragma once

#include "tools/jswctl/Report.h"
#include "tools/jswctl/content/ContentFacts.h"

namespace jsw::ctl {

/// Reports mistakes in a page, also compared with its other languages.
void judgePage(const ContentPage& page, const ContentFacts& facts, Report& report);

/// Reports buttons and links without an action.
/// @param billboard  the billboard that shows the page, with that many actions
void judgeActions(const ContentPage& page, const std::string& billboard, std::size_t actions,
                  Report& report);

}  // namespace jsw::ctl
