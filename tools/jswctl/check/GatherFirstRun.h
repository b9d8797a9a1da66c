#pragma once

#include "tools/jswctl/check/HostFacts.h"

namespace jsw::ctl {

/// Gathers the store, the settings file beside the host, and the settings as stored or, before the
/// first run, as the file would store them. The host's names must already be set.
void gatherFirstRun(HostFacts& facts);

}  // namespace jsw::ctl
