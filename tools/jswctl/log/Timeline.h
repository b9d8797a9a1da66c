#pragma once

#include "tools/jswctl/log/LoggedJob.h"

#include <string>
#include <string_view>

namespace jsw::ctl::log {

/// The legend of the pictures, as a paragraph of a page.
std::string legendAsHtml();

/// A picture of a job as inline SVG: a lane for each thread, calls as bars with inner calls below
/// them, problems as marks. The page's style sets the colours. Empty if the lines have no times.
std::string timelineAsSvg(const LoggedJob& job);

}  // namespace jsw::ctl::log
