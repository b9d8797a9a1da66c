#pragma once

#include "tools/jswctl/Report.h"
#include "tools/jswctl/content/ContentFacts.h"

namespace jsw::ctl {

/// Says what is wrong with a page by itself and beside its other languages.
void judgePage(const ContentPage& page, const ContentFacts& facts, Report& report);

/// Says which of its buttons and links lead nowhere.
/// @param billboard  the one that shows the page, with that many actions
void judgeActions(const ContentPage& page, const std::string& billboard, std::size_t actions,
                  Report& report);

}  // namespace jsw::ctl
