#pragma once

#include "tools/jswctl/check/HostFacts.h"

namespace jsw::ctl {

/// Gathers what a job of Localize's host would find, without changing anything: unlike a job it
/// writes no missing values. Loads modules in separate processes and queries the catalog for its
/// default and ink status billboards.
HostFacts gatherHost();

}  // namespace jsw::ctl
