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

/// Reads a whole settings file into memory, through Windows' profile functions. A file that cannot
/// be read, or is none, or is too large for the memory there is, gives false results and empty
/// lists. Nothing but std::bad_alloc is thrown, and that only where names and values are copied: by
/// the constructor and by what asks for values. Used by one thread.
class IniReader {
  public:
    explicit IniReader(const std::string& fileName);

    /// Reads the file; true when its sections and their pairs are here.
    bool build();

    /// The two steps of build(). The buffer size, in bytes, must hold every list of names and every
    /// value; the size of the file always does.
    bool buildSections(std::uint32_t bufferSize);
    bool buildSectionsData(std::uint32_t bufferSize);

    /// Section names in file order.
    const std::vector<std::string>& sections() const { return sections_; }

    /// Copies a section's pairs; none for an unknown section or a file that was not parsed.
    void getSectionData(const std::string& sectionName, IniPairs& pairs) const;

    /// Splits a typed value; the text is what follows the ":".
    static IniValueType getValueType(const std::string& value, std::string& text);

  private:
    std::string fileName_;  // in full: the profile functions look for bare names elsewhere
    bool parsed_ = false;
    std::vector<std::string> sections_;
    std::map<std::string, IniPairs> sectionData_;
};

}  // namespace jsw
