#pragma once

#include <span>
#include <string>
#include <string_view>

namespace jsw::ctl {

/// One kind of module that the library loads.
struct ModuleKind {
    std::string_view name;                       ///< on the command line
    std::span<const char* const> entryPoints;    ///< all that the library looks up
    std::span<const char* const> indispensable;  ///< those without which the module has no effect
    const char* without;                         ///< what a job is like without the module
    bool stopsJob;                               ///< whether that stops something
};

std::span<const ModuleKind> moduleKinds();

/// Null for a name that is none.
const ModuleKind* findModuleKind(std::string_view name);

/// "view, catalog, rules, legacy, device".
std::string moduleKindNames();

}  // namespace jsw::ctl
