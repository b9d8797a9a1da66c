#pragma once

#include "tools/qldemo/DemoOptions.h"
#include "tools/qldemo/DemoScript.h"

#include <cstdint>
#include <vector>

namespace jsw::qldemo {

/**
 * Everything that happens in one job, ordered by time: the script's steps for it, and, unless the
 * script itself reports pages, the pages at the options' pace; the prompt the options ask for in
 * the middle of them; and an end after all of it when the script has none.
 */
[[nodiscard]] std::vector<Step> planJob(const DemoOptions& options, const std::vector<Step>& script,
                                        uint32_t job);

}  // namespace jsw::qldemo
