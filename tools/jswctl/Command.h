#pragma once

#include "tools/jswctl/ExitCode.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace jsw::ctl {

/// The action of the command line; returns an ExitCode. Any exception of it except BadUse is
/// reported in one line on the error stream and ends the program with kFindings.
using Action = std::function<int()>;

/// A user's mistake, reported in one line on the error stream. Ends the program with kBadUse.
class BadUse : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// An option or argument of a command.
class Option {
  public:
    explicit Option(CLI::Option* option) : option_(option) {}

    Option& required();
    Option& hidden();                          ///< not in --help
    Option& shownAs(const char* value);        ///< the name of its value in --help
    Option& between(int lowest, int highest);  ///< of a number

  private:
    CLI::Option* option_;
};

/// Describes one command. Before the action the targets get the given values; the others keep
/// theirs.
class Command {
  public:
    Command(CLI::App* command, Action* action) : command_(command), action_(action) {}

    /// Adds an option, or an argument if its name has no dashes.
    /// @param target  a std::string, std::int32_t, unsigned or std::uintptr_t, a vector of
    /// std::string, for several values, or of std::int32_t, for numbers separated by commas
    template <class Target>
    Option option(const char* name, Target& target, const std::string& help = {});
    void flag(const char* name, bool& target, const char* help);

    /// Sets what this command does.
    void does(Action action);

  private:
    CLI::App* command_;
    Action* action_;
};

/// The program's command line. Only its .cpp includes CLI11, which takes seconds to compile.
class CommandLine {
  public:
    CommandLine();
    ~CommandLine();

    /// @param help  its part of --help; empty for an internal command, which --help does not show
    Command command(const char* name, const char* help);

    /// Parses the command line and runs the command. Returns an ExitCode or throws BadUse.
    int run(int argc, char** argv);

  private:
    std::unique_ptr<CLI::App> program_;
    Action action_;
};

/// Each command adds itself, its options and its part of --help to the command line.
using AddCommand = void(CommandLine& program);

AddCommand addCheckCommand;
AddCommand addContentCommand;
AddCommand addInstallCommand;
AddCommand addLogCommand;
AddCommand addModuleCommand;
AddCommand addRemoveCommand;
AddCommand addTryCommand;

}  // namespace jsw::ctl
