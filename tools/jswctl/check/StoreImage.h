#pragma once

#include "jsw/settings/SettingNames.h"
#include "tools/jswctl/check/Source.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace jsw::ctl {

/// One value as it is stored, or why it is not to be had.
struct StoredValue {
    Source source = Source::missing;  ///< anything but a fallback
    std::string text{};               ///< of a text
    std::uint32_t number = 0;         ///< of a number
};

/// A setting as a job goes by it.
struct EffectiveText {
    std::string value;
    Source source;
};
struct EffectiveNumber {
    std::uint32_t value;
    Source source;
};

/// The known settings of a host: as they are in the registry, or as the settings file would put
/// them there. Keys and names are compared with letter case aside and with or without a final
/// backslash, as the registry does.
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
