#include "samples/common/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>

namespace jsw::sample {
namespace {

constexpr size_t kHelpColumn = 28;

}  // namespace

CommandLine::CommandLine(const char* program, const char* purpose, const std::string& end)
    : program_(std::make_unique<CLI::App>(purpose, program)) {
    program_->set_help_flag("--help", "show this text");
    program_->option_defaults()->take_last();
    program_->allow_windows_style_options(false);  // "/x" is a file name
    program_->get_formatter()->column_width(kHelpColumn);
    program_->footer(end);
}

CommandLine::CommandLine(CommandLine&& other) noexcept = default;
CommandLine::~CommandLine() = default;

void CommandLine::add(const std::string& name, const char* value, const std::string& help,
                      TakeValue take) {
    const auto check = [=, take = std::move(take)](const std::string& text) {
        if (!take(text)) {
            throw CLI::ValidationError("'" + text + "' is not valid for " + name + ": " + help);
        }
    };
    program_->add_option_function<std::string>(name, check, help)->type_name(value);
}

void CommandLine::add(const std::string& name, const char* value, const std::string& help,
                      std::string& target) {
    add(name, value, help, [&target](const std::string& text) {
        target = text;
        return !text.empty();
    });
}

void CommandLine::add(const std::string& name, const char* values, const std::string& help,
                      std::function<void(const std::string&, const std::string&)> take) {
    using Pair = std::pair<std::string, std::string>;
    program_
        ->add_option_function<Pair>(
            name, [take = std::move(take)](const Pair& pair) { take(pair.first, pair.second); },
            help)
        ->type_name(values);
}

void CommandLine::add(const std::string& name, const std::string& help,
                      std::function<void()> take) {
    program_->add_flag_callback(name, std::move(take), help);
}

std::string CommandLine::parse(std::vector<std::string> arguments, bool& help) {
    std::string error;
    std::reverse(arguments.begin(), arguments.end());  // CLI11 expects them in reverse order
    try {
        program_->parse(std::move(arguments));
    } catch (const CLI::ExtrasError&) {
        const std::vector<std::string> unknown = program_->remaining();
        error = "unknown option " + (unknown.empty() ? std::string() : unknown.front());
    } catch (const CLI::ParseError& problem) {
        error = problem.what();
    }
    help = program_->get_help_ptr()->count() > 0;
    return help ? std::string() : error;
}

std::string CommandLine::help() const {
    return program_->help();
}

}  // namespace jsw::sample
