#pragma once

#include "PublicLib/win/Handles.h"

#include <cstdint>
#include <functional>
#include <string>

namespace jsw::test {

/// A second process of this test program that runs one of its roles (see ChildRole).
class ChildProcess {
  public:
    /// @param argument  passed to the role
    /// @param program   a copy of this test program under another name; empty: this program
    ChildProcess(const std::string& role, const std::string& argument,
                 const std::string& program = {});

    /// Waits; returns the exit code, or STILL_ACTIVE after the timeout.
    std::uint32_t wait(std::uint32_t timeoutMilliseconds);
    void kill();

  private:
    KernelHandle process_;
};

/// Defines the work of a child process of this test program, by a static object:
///     const ChildRole writer("writer", [](const std::string& argument) { … return 0; });
class ChildRole {
  public:
    ChildRole(const std::string& name, std::function<int(const std::string&)> run);

    /// Runs the role in the command line and ends the process; returns if there is none.
    static void runIfAsked();
};

}  // namespace jsw::test
