#pragma once

#include <memory>
#include <string>

namespace jsw {

/// The host program's executable. Immutable, so thread-safe.
class CurrentProcess {
  public:
    /// Creates the instance on first use, also after destroy(). It stays valid while it is held.
    static std::shared_ptr<const CurrentProcess> instance();
    static void destroy();

    /// Throws Win32Exception if Windows does not return the path.
    CurrentProcess();

    const std::string& path() const { return path_; }
    /// The path up to and including the last backslash; empty if the path is empty.
    std::string folder() const;

  private:
    std::string path_;
};

}  // namespace jsw
