#pragma once

#include "PublicLib/win/Handles.h"

#include <cstdint>
#include <functional>
#include <string>

namespace jsw::test {

/// A second process of this test program that runs one of its roles (see ChildRole).
class ChildProcess {
  public:
    /// @param argument  handed to the role
    /// @param program   a copy of this test program under another name; empty: the program itself
    ChildProcess(const std::string& role, const std::string& argument,
                 const std::string& program = {});

    /// Waits; answers the exit code, or STILL_ACTIVE when the time is over.
    std::uint32_t wait(std::uint32_t timeoutMilliseconds);
    void kill();

  private:
    KernelHandle process_;
};

/// Defines what a child process of this test program does, by a static object:
///     const ChildRole writer("writer", [](const std::string& argument) { … return 0; });
class ChildRole {
  public:
    ChildRole(const std::string& name, std::function<int(const std::string&)> run);

    /// Runs the role that the command line asks for and ends the process; returns when none is.
    static void runIfAsked();
};

}  // namespace jsw::test
