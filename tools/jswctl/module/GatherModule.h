#pragma once

#include "tools/jswctl/module/ModuleFacts.h"

#include <string>

namespace jsw::ctl {

/// Examines a module's file and the libraries that it needs, without loading anything.
/// @param path        as for LoadLibrary: relative to the current folder, or a bare name
/// @param hostFolder  the host program's folder, which Windows searches first
ModuleFacts gatherModule(const ModuleKind& kind, const std::string& path,
                         const std::string& hostFolder);

}  // namespace jsw::ctl
