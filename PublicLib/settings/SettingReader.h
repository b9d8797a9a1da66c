#pragma once

#include <cstdint>
#include <string>

namespace jsw {

namespace setting {

/// A number (REG_DWORD) with the default used, or written, when it is missing.
struct Number {
    const char* key;
    const char* name;
    std::uint32_t defaultValue;
};

/// A text (REG_SZ) with the default used, or written, when it is missing.
struct Text {
    const char* key;
    const char* name;
    const char* defaultValue;
};

}  // namespace setting

/// How the parts of PublicLib read the settings store, which stands above them. Every thread may
/// ask. Answers false, with the value as it was, for what is not there or cannot be read, and
/// throws Exception while the host's names (Localize) are not known.
struct SettingReader {
    bool (*storeExists)();
    bool (*readNumber)(const setting::Number& number, std::uint32_t& value);
    bool (*readText)(const setting::Text& text, std::string& value);
};

/// Hands the reader in, at the start; it must last as long as the process.
void setSettingReader(const SettingReader& reader);

/// The reader that was handed in; before that one that finds no store.
const SettingReader& settingReader();

}  // namespace jsw
