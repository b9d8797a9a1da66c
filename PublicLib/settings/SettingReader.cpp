#include "PublicLib/settings/SettingReader.h"

#include <atomic>

namespace jsw {

namespace {

constexpr SettingReader kNoStore{[] { return false; },
                                 [](const setting::Number&, std::uint32_t&) { return false; },
                                 [](const setting::Text&, std::string&) { return false; }};

std::atomic<const SettingReader*> current{&kNoStore};

}  // namespace

void setSettingReader(const SettingReader& reader) {
    current = &reader;
}

const SettingReader& settingReader() {
    return *current;
}

}  // namespace jsw
