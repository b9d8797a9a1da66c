#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

namespace jsw {

/// Which registry tree of the module is meant.
enum class StoreKind { local = 0, shared = 1, scratch = 2 };

/// The local id of a host program: the first four characters of its file name, A-Z lowered.
std::string localIdOf(std::string_view executablePath);

/// Names derived from the host program: its local id, its settings file and its registry paths.
/// Does not change after creation; every thread may read it.
class Localize {
  public:
    /// Creates the process's instance unless it exists. A null module means the executable of the
    /// process. Throws Exception when the file name or the id cannot be had.
    static void createInstance(HMODULE module);
    /// The names of another program than the one that runs, for tools that look after its
    /// settings. Nothing of it but its path is looked at.
    static void createInstanceFor(const std::string& executablePath);
    /// Throws Exception before createInstance(). The answer stays valid while it is held.
    static std::shared_ptr<const Localize> getInstance();
    static void destroy();

    explicit Localize(HMODULE module);
    explicit Localize(std::string executablePath);

    const std::string& localId() const { return localId_; }
    const std::string& modulePath() const { return modulePath_; }

    /// File that seeds the settings on the first run: local id + "jsw.loc".
    std::string settingsFileName() const;

    /// Paths below HKEY_LOCAL_MACHINE. A host of no known product line uses "Quillon Tools";
    /// getProductLineRoot answers false for it, with the path set all the same.
    bool getProductLineRoot(std::string& path) const;
    std::string getProductLineRoot() const;
    std::string getJswRoot() const;
    std::string getRegistryPath(StoreKind kind) const;

  private:
    std::string modulePath_;
    std::string localId_;
};

}  // namespace jsw
