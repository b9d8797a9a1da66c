#pragma once

#include "tools/jswctl/ExitCode.h"

#include <CLI/CLI.hpp>
#include <functional>
#include <stdexcept>
#include <string>

namespace jsw::ctl {

/// The action of the command line; returns an ExitCode.
using Action = std::function<int()>;

/// A user's mistake, reported in one line on the error stream. Ends the program with kBadUse.
class BadUse : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Each command adds itself, its options and its part of --help to the command line, and sets the
/// action if it is the given one. Any exception of an action except BadUse is reported in one line
/// on the error stream and ends the program with kFindings.
using AddCommand = void(CLI::App& program, Action& action);

AddCommand addCheckCommand;
AddCommand addContentCommand;
AddCommand addInstallCommand;
AddCommand addLogCommand;
AddCommand addModuleCommand;
AddCommand addRemoveCommand;
AddCommand addTryCommand;

}  // namespace jsw::ctl
