#pragma once

#include "tools/jswctl/module/ModuleKinds.h"
#include "tools/jswctl/module/PeFile.h"

#include <cstdint>
#include <string>
#include <vector>

namespace jsw::ctl {

/// A library that a module needs and that would not be found.
struct MissingLibrary {
    std::string name;
    std::string neededBy;  ///< file name of the library that asks for it
};

/// Answer of an entry point that gave a null pointer.
inline constexpr char kNoAnswer[] = "(none)";

/// Answer of an entry point that said yes.
inline constexpr char kYes[] = "yes";

/// Answer of an entry point that let a C++ exception out.
inline constexpr char kException[] = "a C++ exception";

/// One call into a module, made in a process of its own.
struct ModuleCall {
    std::string name;    ///< "LoadLibrary", or an entry point with its argument
    bool ended = false;  ///< false for the call in which the process ended
    double milliseconds = 0;
    std::string answer;  ///< in words; empty for a call without an answer
};

/// What a process that used the module saw.
struct ModuleTrial {
    bool started = false;        ///< false: the module was not tried
    bool finished = false;       ///< the process came to its end by itself
    std::string problem;         ///< why it could not be loaded, or tried; empty when it could
    bool timedOut = false;       ///< it was ended because it did not come back
    std::uint32_t exitCode = 0;  ///< of the process: 0, or the code of the exception that ended it
    std::vector<ModuleCall> calls;
    std::vector<std::string> faults;  ///< what it does wrong with memory, or with a question
};

/// What was found out about one module.
struct ModuleFacts {
    const ModuleKind* kind = nullptr;
    std::string fullPath;  ///< of the file that LoadLibrary would take
    bool exists = false;
    bool isFolder = false;
    std::string unreadable;  ///< why the file cannot be read; empty when it could
    PeFile file;
    std::vector<MissingLibrary> missing;
    ModuleTrial trial;
};

}  // namespace jsw::ctl
