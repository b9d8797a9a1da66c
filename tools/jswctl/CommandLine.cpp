#include "tools/jswctl/Command.h"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <type_traits>
#include <utility>
#include <vector>

namespace jsw::ctl {

namespace {

BadUse mistake(const std::string& text) {
    return BadUse(text + "; try jswctl --help");
}

/// The exit code of a command line without action: help or version.
int endAfterParsing(const CLI::App& program, const CLI::ParseError& end) {
    if (end.get_exit_code() == 0) return program.exit(end);
    const std::vector<std::string> unknown = program.remaining();
    if (program.get_subcommands().empty() && !unknown.empty()) {
        throw mistake("there is no command '" + unknown.front() + "'");
    }
    throw mistake(end.what());
}

}  // namespace

Option& Option::required() {
    option_->required();
    return *this;
}

Option& Option::hidden() {
    option_->group("");
    return *this;
}

Option& Option::shownAs(const char* value) {
    option_->type_name(value);
    return *this;
}

Option& Option::between(int lowest, int highest) {
    option_->check(CLI::Range(lowest, highest));
    return *this;
}

template <class Target>
Option Command::option(const char* name, Target& target, const std::string& help) {
    CLI::Option* option = command_->add_option(name, target, help);
    if constexpr (std::is_same_v<Target, std::vector<std::int32_t>>) {
        option->delimiter(',')->allow_extra_args(false);
    }
    return Option(option);
}

template Option Command::option(const char*, std::string&, const std::string&);
template Option Command::option(const char*, std::int32_t&, const std::string&);
template Option Command::option(const char*, unsigned&, const std::string&);
template Option Command::option(const char*, std::uintptr_t&, const std::string&);
template Option Command::option(const char*, std::vector<std::string>&, const std::string&);
template Option Command::option(const char*, std::vector<std::int32_t>&, const std::string&);

void Command::flag(const char* name, bool& target, const char* help) {
    command_->add_flag(name, target, help);
}

void Command::does(Action action) {
    command_->callback([place = action_, action = std::move(action)] { *place = action; });
}

CommandLine::CommandLine()
    : program_(std::make_unique<CLI::App>(
          "Checks and prepares an installation of the job status library.", "jswctl")) {
    program_->set_version_flag("--version", "jswctl " JSWCTL_VERSION);
    program_->allow_windows_style_options(false);  // "/x" is a file name
    program_->require_subcommand(0, 1);            // a missing command is reported below
    program_->footer("Exit code: 0 success, 1 something stops a job or failed, 2 wrong usage.");
}

CommandLine::~CommandLine() = default;

Command CommandLine::command(const char* name, const char* help) {
    CLI::App* command = program_->add_subcommand(name, help);
    if (*help == '\0') command->group("");
    return Command(command, &action_);
}

int CommandLine::run(int argc, char** argv) {
    try {
        program_->parse(argc, argv);
    } catch (const CLI::ParseError& end) {
        return endAfterParsing(*program_, end);
    }
    if (!action_) throw mistake("no command given");
    return action_();
}

}  // namespace jsw::ctl
