#pragma once

#include "tools/jswctl/ExitCode.h"

#include <CLI/CLI.hpp>
#include <functional>
#include <stdexcept>
#include <string>

namespace jsw::ctl {

/// What the command line asked for; answers an ExitCode.
using Action = std::function<int()>;

/// The user's mistake, told in one line on the error stream. Ends the program with kBadUse.
class BadUse : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Each command adds itself, with its options and its part of --help, to the command line and sets
/// the action when it is the one that was given. Any exception but BadUse that leaves an action is
/// told in one line on the error stream and ends the program with kFindings.
using AddCommand = void(CLI::App& program, Action& action);

AddCommand addCheckCommand;
AddCommand addContentCommand;
AddCommand addInstallCommand;
AddCommand addLogCommand;
AddCommand addModuleCommand;
AddCommand addRemoveCommand;
AddCommand addTryCommand;

}  // namespace jsw::ctl
