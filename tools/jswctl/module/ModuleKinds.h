#pragma once

#include <span>
#include <string>
#include <string_view>

namespace jsw::ctl {

/// An essential entry point of a module.
struct Need {
    std::string_view entryPoint;
    const char* loss;      ///< what the user loses without it
    bool mayLack = false;  ///< some modules omit it on purpose
};

/// One kind of module that the library loads.
struct ModuleKind {
    std::string_view name;                     ///< on the command line
    std::string_view topic;                    ///< in reports
    std::span<const char* const> entryPoints;  ///< all that the library looks up
    std::span<const Need> needs;
    const char* without;  ///< the effect of a missing module
    bool stopsJob;        ///< whether this stops something
};

std::span<const ModuleKind> moduleKinds();

/// jsw.dll itself, which is examined like a module.
const ModuleKind& libraryKind();

/// Null for an unknown name.
const ModuleKind* findModuleKind(std::string_view name);

/// "view, catalog, rules, legacy, device".
std::string moduleKindNames();

}  // namespace jsw::ctl
