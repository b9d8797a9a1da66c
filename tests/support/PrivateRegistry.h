#pragma once

#include <string>

namespace jsw::test {

/// Gives this process a HKEY_LOCAL_MACHINE of its own, empty at first, for as long as the object
/// lives. Child processes join it with join().
class PrivateRegistry {
  public:
    PrivateRegistry();
    ~PrivateRegistry();
    PrivateRegistry(const PrivateRegistry&) = delete;
    PrivateRegistry& operator=(const PrivateRegistry&) = delete;

    /// Below HKEY_CURRENT_USER, for join() in a child process.
    const std::string& path() const { return path_; }
    static void join(const std::string& path);

  private:
    std::string path_;
};

}  // namespace jsw::test
