#pragma once

namespace jsw::ctl {

/// What the program answers to the shell.
enum ExitCode {
    kWell = 0,
    kFindings = 1,  ///< something was found, or failed, that stops a job or the command
    kBadUse = 2,    ///< unknown command or option, a file that is not there or is no such file
};

}  // namespace jsw::ctl
