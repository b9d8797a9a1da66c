#pragma once

#include "tools/jswctl/module/ModuleFacts.h"

#include <string>

namespace jsw::ctl {

/// Looks at a module's file, and at the libraries it needs, without loading anything.
/// @param path        as given to LoadLibrary: relative to the current folder, or a bare name
/// @param hostFolder  folder of the host program, in which Windows looks for libraries first
ModuleFacts gatherModule(const ModuleKind& kind, const std::string& path,
                         const std::string& hostFolder);

}  // namespace jsw::ctl
