#pragma once

#include <cstdint>
#include <string>

namespace jsw::sample {

/** The id of the host program: the first four letters of its name, in lower case. */
[[nodiscard]] std::string hostId();

/**
 * The settings of the host program that the job status library keeps in the registry. Subkeys are
 * relative to the host's own store and end with a backslash ("Settings\\Catalog\\"). Never throws:
 * a value that cannot be read gives the fallback, one that cannot be written is dropped.
 * Thread-safe: every call opens and closes its own key.
 */
class HostStore {
  public:
    /** The store of the host program, by its file name. */
    HostStore();
    /// The store of another program, by its local id: the first four letters of its file name.
    explicit HostStore(const std::string& localId);

    [[nodiscard]] bool exists() const { return !path_.empty(); }

    /** The fallback also replaces an empty text. */
    [[nodiscard]] std::string text(const std::string& subKey, const std::string& name,
                                   const std::string& fallback) const;
    [[nodiscard]] uint32_t number(const std::string& subKey, const std::string& name,
                                  uint32_t fallback) const;
    /** False if the value could not be written. */
    bool setText(const std::string& subKey, const std::string& name,
                 const std::string& value) const;
    bool setNumber(const std::string& subKey, const std::string& name, uint32_t value) const;

    /**
     * The full path of a file in the data folder. The folder is the value "DataPath" (relative to
     * the current folder when it is relative), or the folder "data" beside this module.
     *
     * @param subKey, name     where the store keeps the file's name
     * @param fallback         the name when the store has none
     */
    [[nodiscard]] std::string dataFile(const std::string& subKey, const std::string& name,
                                       const std::string& fallback) const;

  private:
    bool setValue(const std::string& subKey, const std::string& name, uint32_t type,
                  const void* data, size_t size) const;

    std::string path_;  ///< below HKEY_LOCAL_MACHINE, ends with a backslash; empty without a store
};

}  // namespace jsw::sample
