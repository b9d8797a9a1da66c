#pragma once

#include "jsw/settings/SettingNames.h"
#include "tools/jswctl/check/Source.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace jsw::ctl {

/// One stored value, or why it is unavailable.
struct StoredValue {
    Source source = Source::missing;  ///< anything but a fallback
    std::string text{};               ///< of a text
    std::uint32_t number = 0;         ///< of a number
};

/// A setting as a job uses it.
struct EffectiveText {
    std::string value;
    Source source;
};
struct EffectiveNumber {
    std::uint32_t value;
    Source source;
};

/// The known settings of a host, as stored in the registry or as the settings file would store
/// them. Like the registry, ignores letter case and a trailing backslash in keys and names.
class StoreImage {
  public:
    void put(const std::string& key, const std::string& name, StoredValue value);

    EffectiveText text(const setting::Text& setting) const;
    EffectiveNumber number(const setting::Number& setting) const;

  private:
    using Place = std::pair<std::string, std::string>;
    static Place place(const std::string& key, const std::string& name);
    Source sourceOf(const StoredValue* value, bool hasDefault) const;
    const StoredValue* find(const char* key, const char* name) const;

    std::map<Place, StoredValue> values_;
};

}  // namespace jsw::ctl
