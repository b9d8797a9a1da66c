#pragma once

#include "tools/jswctl/check/HostFacts.h"

namespace jsw::ctl {

/// The store, the settings file beside the host, and the settings as they are or, before the first
/// run, as the file would make them. The host's names must be there already.
void gatherFirstRun(HostFacts& facts);

}  // namespace jsw::ctl
