#pragma once

#include <memory>
#include <string>

namespace jsw {

/// The host program's executable. Does not change after creation; every thread may read it.
class CurrentProcess {
  public:
    /// Creates the instance on first use, also after destroy(). The answer stays valid while held.
    static std::shared_ptr<const CurrentProcess> instance();
    static void destroy();

    /// Throws Win32Exception when Windows does not give the path.
    CurrentProcess();

    const std::string& path() const { return path_; }
    /// The path up to and including the last backslash; empty when the path is empty.
    std::string folder() const;

  private:
    std::string path_;
};

}  // namespace jsw
