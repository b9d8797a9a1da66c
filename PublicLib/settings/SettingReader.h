#pragma once

#include <cstdint>
#include <string>

namespace jsw {

namespace setting {

/// A number (REG_DWORD) with the default that is used, or written, if it is missing.
struct Number {
    const char* key;
    const char* name;
    std::uint32_t defaultValue;
};

/// A text (REG_SZ) with the default that is used, or written, if it is missing.
struct Text {
    const char* key;
    const char* name;
    const char* defaultValue;
};

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
