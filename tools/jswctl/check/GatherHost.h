#pragma once

#include "tools/jswctl/check/HostFacts.h"

namespace jsw::ctl {

/// Finds out about the host that Localize names what a job of it would meet, without changing
/// anything: what is missing is not written, as a job would. Modules are loaded in processes of
/// their own, and the catalog is asked for its default and ink status billboards.
HostFacts gatherHost();

}  // namespace jsw::ctl
