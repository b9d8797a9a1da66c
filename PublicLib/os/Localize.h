#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

namespace jsw {

/// A registry tree of the host.
enum class StoreKind { local = 0, shared = 1, scratch = 2 };

/// The local id of a host program: the first four characters of its file name, A-Z lowered.
std::string localIdOf(std::string_view executablePath);

/// Names derived from the host program: its local id, its settings file and its registry paths.
/// Immutable, so thread-safe.
class Localize {
  public:
    /// Creates the process's instance unless it exists. A null module means the process's
    /// executable. Throws Exception if the file name or the id is unavailable.
    static void createInstance(HMODULE module);
    /// The names of another program, for tools that handle its settings. Only its path is used.
    static void createInstanceFor(const std::string& executablePath);
    /// Throws Exception before createInstance(). The object stays valid while it is held.
    static std::shared_ptr<const Localize> getInstance();
    static void destroy();

    explicit Localize(HMODULE module);
    explicit Localize(std::string executablePath);

    const std::string& localId() const { return localId_; }
    const std::string& modulePath() const { return modulePath_; }

    /// The settings file that the first run installs: local id + "jsw.loc".
    std::string settingsFileName() const;

    /// Paths below HKEY_LOCAL_MACHINE. A host of no known product line uses "Quillon Tools";
    /// getProductLineRoot returns false for it but sets the path.
    bool getProductLineRoot(std::string& path) const;
    std::string getProductLineRoot() const;
    std::string getJswRoot() const;
    std::string getRegistryPath(StoreKind kind) const;

  private:
    std::string modulePath_;
    std::string localId_;
};

}  // namespace jsw
