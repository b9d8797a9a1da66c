#pragma once

namespace jsw::ctl {

/// The program's exit codes.
enum ExitCode {
    kWell = 0,
    kFindings = 1,  ///< something was found that stops a job, or the command failed
    kBadUse = 2,    ///< unknown command or option, missing or wrong file
};

}  // namespace jsw::ctl
