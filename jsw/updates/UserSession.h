#pragma once

#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <string>

namespace jsw {

/// The session of the user at the console; 0 on systems without that function.
DWORD activeConsoleSession();

/// The environment variables of a user, as a block for a new process. Owns the block and the
/// library that made it.
class UserEnvironment {
  public:
    UserEnvironment() = default;
    ~UserEnvironment();
    UserEnvironment(const UserEnvironment&) = delete;
    UserEnvironment& operator=(const UserEnvironment&) = delete;

    /// Makes the block of a token's user, without this process's environment. Call it once. Returns
    /// an empty text on success, else what failed, with the error number, for the log.
    [[nodiscard]] std::string create(HANDLE token);

    /// In wide characters; null if there is none, so that the process inherits this one's.
    void* block() const { return block_; }

  private:
    ModuleHandle library_;
    void* block_ = nullptr;
};

}  // namespace jsw
