#pragma once

#include <cstdint>
#include <string>

namespace jsw::sample {

/** The id of the program this module runs in: the first four letters of its name, in lower case. */
[[nodiscard]] std::string hostId();

/**
 * The settings of the host program that the job status library keeps in the registry. Sub-keys are
 * relative to the host's own store and end in a backslash ("Settings\\Catalog\\"). Nothing fails:
 * what cannot be read is the fallback, what cannot be written is not. Every call opens and closes
 * its own key, so any thread may use it.
 */
class HostStore {
  public:
    /** Finds the store of the program this module runs in, by the program's file name. */
    HostStore();
    /// The store of another program, by its local id: the first four letters of its file name.
    explicit HostStore(const std::string& localId);

    [[nodiscard]] bool exists() const { return !path_.empty(); }

    /** The fallback also stands in for an empty text. */
    [[nodiscard]] std::string text(const std::string& subKey, const std::string& name,
                                   const std::string& fallback) const;
    [[nodiscard]] uint32_t number(const std::string& subKey, const std::string& name,
                                  uint32_t fallback) const;
    /** False when the value could not be written. */
    bool setText(const std::string& subKey, const std::string& name,
                 const std::string& value) const;
    bool setNumber(const std::string& subKey, const std::string& name, uint32_t value) const;

    /**
     * The full path of a file in the data folder. The folder is the value "DataPath" (relative to
     * the current folder when it is relative), or the folder "data" beside the module at the given
     * address.
     *
     * @param subKey, name     where the store keeps the file's name
     * @param fallback         the name when the store has none
     * @param addressInModule  an address inside the asking module
     */
    [[nodiscard]] std::string dataFile(const std::string& subKey, const std::string& name,
                                       const std::string& fallback,
                                       const void* addressInModule) const;

  private:
    bool setValue(const std::string& subKey, const std::string& name, uint32_t type,
                  const void* data, size_t size) const;

    std::string path_;  ///< below the machine's hive, ends in a backslash; empty without a store
};

}  // namespace jsw::sample
