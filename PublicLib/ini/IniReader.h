#pragma once

#include "PublicLib/ini/IniText.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace jsw {

/// The keys of a section with their values, in file order.
using IniPairs = std::vector<std::pair<std::string, std::string>>;

/// Reads a whole settings file into memory with Windows' profile functions. If the file cannot be
/// read, is not a settings file, or does not fit into memory, results are false and lists are
/// empty. Only the constructor and the accessors throw, and only std::bad_alloc. Not thread-safe.
class IniReader {
  public:
    /// @param fileName  full path: the profile functions look for bare names elsewhere
    explicit IniReader(const std::string& fileName);

    /// Reads the file; true if its sections and their pairs have been read.
    [[nodiscard]] bool build();

    /// The two steps of build(). The buffer size, in bytes, must suffice for every list of names
    /// and every value; the file's size always does.
    [[nodiscard]] bool buildSections(std::uint32_t bufferSize);
    [[nodiscard]] bool buildSectionsData(std::uint32_t bufferSize);

    /// Section names in file order.
    const std::vector<std::string>& sections() const { return sections_; }

    /// Copies a section's pairs; none for an unknown section or a file that was not parsed.
    void getSectionData(const std::string& sectionName, IniPairs& pairs) const;

    /// Splits a typed value; the text is what follows the ":".
    static IniValueType getValueType(const std::string& value, std::string& text);

  private:
    std::string fileName_;
    bool parsed_ = false;
    std::vector<std::string> sections_;
    std::map<std::string, IniPairs> sectionData_;
};

}  // namespace jsw
