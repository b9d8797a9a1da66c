#pragma once

#include <cstdint>
#include <string>

namespace jsw {

namespace setting {

/// The place of a value, with the default that is used, or written, if it is missing.
template <class ValueType, class Default>
struct Setting {
    using Value = ValueType;
    const char* key;
    const char* name;
    Default defaultValue;
};
using Number = Setting<std::uint32_t, std::uint32_t>;  ///< REG_DWORD
using Text = Setting<std::string, const char*>;        ///< REG_SZ

}  // namespace setting

/// How the parts of PublicLib read the settings store, which belongs to a higher layer.
/// Thread-safe. Returns false and leaves the value unchanged if it is missing or cannot be read.
/// Throws Exception while the host's names (Localize) are unknown.
struct SettingReader {
    bool (*storeExists)();
    bool (*readNumber)(const setting::Number& number, std::uint32_t& value);
    bool (*readText)(const setting::Text& text, std::string& value);
};

/// Sets the reader, at the start; it must live as long as the process.
void setSettingReader(const SettingReader& reader);

/// The reader that was set; before that one that finds no store.
const SettingReader& settingReader();

}  // namespace jsw
