#pragma once

#include "tools/jswctl/module/ModuleKinds.h"
#include "tools/jswctl/module/PeFile.h"

#include <cstdint>
#include <string>
#include <vector>

namespace jsw::ctl {

/// A library that a module needs and Windows would not find.
struct MissingLibrary {
    std::string name;
    std::string neededBy;  ///< file name of the library that needs it
};

/// Result of an entry point that returned a null pointer.
inline constexpr char kNoAnswer[] = "(none)";

/// Result of an entry point that returned true.
inline constexpr char kYes[] = "yes";

/// Result of an entry point that raised a C++ exception.
inline constexpr char kException[] = "a C++ exception";

/// One call of a module, made in a separate process.
struct ModuleCall {
    std::string name;    ///< "LoadLibrary", or an entry point with its argument
    bool ended = false;  ///< false: the process ended in this call
    double milliseconds = 0;
    std::string answer;  ///< as text; empty for a call without result
};

/// The report of a process that used the module.
struct ModuleTrial {
    bool started = false;        ///< false: the module was not tried
    bool finished = false;       ///< the process ended by itself
    std::string problem;         ///< why it could not be loaded or tested; or empty
    bool timedOut = false;       ///< it was ended after the timeout
    std::uint32_t exitCode = 0;  ///< of the process: 0, or the code of the exception that ended it
    std::vector<ModuleCall> calls;
    std::vector<std::string> faults;  ///< its mistakes with memory or with calls
};

/// Facts about one module.
struct ModuleFacts {
    const ModuleKind* kind = nullptr;
    std::string fullPath;  ///< of the file that LoadLibrary would load
    bool exists = false;
    bool isFolder = false;
    std::string unreadable;  ///< why the file cannot be read; or empty
    PeFile file;
    std::vector<MissingLibrary> missing;
    ModuleTrial trial;
};

}  // namespace jsw::ctl
