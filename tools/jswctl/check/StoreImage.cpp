#include "tools/jswctl/check/StoreImage.h"

#include "PublicLib/text/Text.h"

namespace jsw::ctl {

const char* sourceName(Source source) {
    switch (source) {
        case Source::stored:
            return "stored";
        case Source::inFile:
            return "in the settings file";
        case Source::fallback:
            return "default";
        case Source::missing:
            return "missing";
        case Source::wrongType:
            return "wrong type";
        case Source::unreadable:
            break;
    }
    return "unreadable";
}

StoreImage::Place StoreImage::place(const std::string& key, const std::string& name) {
    std::string lowered = toLower(key);
    while (!lowered.empty() && lowered.back() == '\\') lowered.pop_back();
    return {lowered, toLower(name)};
}

void StoreImage::put(const std::string& key, const std::string& name, StoredValue value) {
    values_[place(key, name)] = std::move(value);
}

const StoredValue* StoreImage::find(const char* key, const char* name) const {
    const auto entry = values_.find(place(key, name));
    return entry == values_.end() ? nullptr : &entry->second;
}

Source StoreImage::sourceOf(const StoredValue* value, bool hasDefault) const {
    const Source source = value == nullptr ? Source::missing : value->source;
    return source == Source::missing && hasDefault ? Source::fallback : source;
}

EffectiveText StoreImage::text(const setting::Text& setting) const {
    const StoredValue* value = find(setting.key, setting.name);
    const Source source = sourceOf(value, *setting.defaultValue != '\0');
    return {isSet(source) ? value->text : setting.defaultValue, source};
}

EffectiveNumber StoreImage::number(const setting::Number& setting) const {
    const StoredValue* value = find(setting.key, setting.name);
    const Source source = sourceOf(value, true);
    return {isSet(source) ? value->number : setting.defaultValue, source};
}

}  // namespace jsw::ctl
