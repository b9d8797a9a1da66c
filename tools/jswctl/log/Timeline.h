#pragma once

#include "tools/jswctl/log/Job.h"

#include <string>
#include <string_view>

namespace jsw::ctl::log {

/// What the colours and marks of the pictures stand for, as a paragraph of a page.
std::string legendAsHtml();

/// A picture of a job as inline SVG: a lane for each thread, calls as bars, those inside others
/// below them, trouble as marks. Its colours are the page's style's. Empty when the lines have no
/// times.
std::string timelineAsSvg(const Job& job);

}  // namespace jsw::ctl::log
