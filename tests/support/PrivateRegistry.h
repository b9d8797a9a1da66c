#pragma once

#include <string>

namespace jsw::test {

/// Gives this process a private HKEY_LOCAL_MACHINE, initially empty, during its lifetime. Child
/// processes join it with join().
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

/// Whether there is a key of HKEY_LOCAL_MACHINE.
bool exists(const std::string& path);

}  // namespace jsw::test
