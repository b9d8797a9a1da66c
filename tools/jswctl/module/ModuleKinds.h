#pragma once

#include <span>
#include <string>
#include <string_view>

namespace jsw::ctl {

/// An entry point without which a module does little.
struct Need {
    std::string_view entryPoint;
    const char* loss;      ///< what the user goes without
    bool mayLack = false;  ///< some modules do without it on purpose
};

/// One kind of module that the library loads.
struct ModuleKind {
    std::string_view name;                     ///< on the command line
    std::string_view topic;                    ///< in reports
    std::span<const char* const> entryPoints;  ///< all that the library looks up
    std::span<const Need> needs;
    const char* without;  ///< what a job is like without the module
    bool stopsJob;        ///< whether that stops something
};

std::span<const ModuleKind> moduleKinds();

/// jsw.dll itself, which is looked at like a module.
const ModuleKind& libraryKind();

/// Null for a name that is none.
const ModuleKind* findModuleKind(std::string_view name);

/// "view, catalog, rules, legacy, device".
std::string moduleKindNames();

}  // namespace jsw::ctl
