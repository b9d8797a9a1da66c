#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace jsw::sample {

/** Takes an option's value; returns whether it is valid. */
using TakeValue = std::function<bool(const std::string&)>;

/**
 * A command line of options, of which each may be given several times: the last one counts. Only
 * its .cpp includes CLI11, which takes seconds to compile.
 */
class CommandLine {
  public:
    /** @param end  of --help, after the options */
    CommandLine(const char* program, const char* purpose, const std::string& end);
    CommandLine(CommandLine&& other) noexcept;
    ~CommandLine();

    /**
     * Adds an option with a value.
     *
     * @param name   with its dashes
     * @param value  what --help calls its value
     */
    void add(const std::string& name, const char* value, const std::string& help, TakeValue take);

    /** Adds an option whose value is any text except an empty one. */
    void add(const std::string& name, const char* value, const std::string& help,
             std::string& target);

    /** Adds an option with two values. */
    void add(const std::string& name, const char* values, const std::string& help,
             std::function<void(const std::string&, const std::string&)> take);

    /** Adds an option without a value. */
    void add(const std::string& name, const std::string& help, std::function<void()> take);

    /**
     * Parses a command line.
     *
     * @param arguments  without the program's name
     * @param help       set if --help is among them, whatever else is wrong
     * @return the mistake in the first invalid argument, a sentence without a full stop, or empty
     */
    [[nodiscard]] std::string parse(std::vector<std::string> arguments, bool& help);

    /** The text of --help. */
    [[nodiscard]] std::string help() const;

  private:
    std::unique_ptr<CLI::App> program_;
};

}  // namespace jsw::sample
