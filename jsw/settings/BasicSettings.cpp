#include "jsw/settings/BasicSettings.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace jsw {

namespace {

constexpr bool kCreate = true;
constexpr bool kOpenOnly = false;

void endWithBackslash(std::string& path) {
    if (path.empty() || path.back() != '\\') path += '\\';
}

template <class Value>
bool writeValue(const std::string& path, const std::string& name, const Value& value) {
    return orLastError([&] {
        RegistryKey(path, kCreate).setValue(name, value);
        return true;
    });
}

}  // namespace

BasicSettings::BasicSettings(std::string root, std::string localName)
    : root_(std::move(root)), localName_(std::move(localName)) {
    endWithBackslash(root_);
    if (!localName_.empty()) endWithBackslash(localName_);
}

std::string BasicSettings::getKeyPath(bool shared) const {
    if (localName_.empty()) return root_;
    return shared ? root_ + "Shared\\" : root_ + "Local\\" + localName_;
}

bool BasicSettings::keyExists(const std::string& path) {
    return RegistryKey::openExisting(path).has_value();
}

bool BasicSettings::rootExists() const {
    return keyExists(root_);
}

template <class Value>
Read BasicSettings::get(const std::string& subKey, const std::string& name, Value& value,
                        bool shared) const {
    const bool found = orLastError([&] {
        // A missing key is normal: nothing is raised.
        const auto key = RegistryKey::openExisting(getKeyPath(shared) + subKey);
        if (!key) return false;
        if (key->getValue(name, value)) return true;
        SetLastError(ERROR_FILE_NOT_FOUND);
        return false;
    });
    return found ? Read::found : readOutcome(GetLastError());
}

template Read BasicSettings::get(const std::string&, const std::string&, std::uint32_t&,
                                 bool) const;
template Read BasicSettings::get(const std::string&, const std::string&, std::string&, bool) const;
template Read BasicSettings::get(const std::string&, const std::string&, std::vector<std::uint8_t>&,
                                 bool) const;

bool BasicSettings::setValue(const std::string& subKey, const std::string& name,
                             std::uint32_t value, bool shared) const {
    return writeValue(getKeyPath(shared) + subKey, name, value);
}

bool BasicSettings::setValue(const std::string& subKey, const std::string& name,
                             const std::string& value, bool shared) const {
    return writeValue(getKeyPath(shared) + subKey, name, value);
}

bool BasicSettings::deleteValue(const std::string& subKey, const std::string& name,
                                bool shared) const {
    return orLastError([&] {
        RegistryKey(getKeyPath(shared) + subKey, kOpenOnly).deleteValue(name);
        return true;
    });
}

bool BasicSettings::deleteKey(const std::string& subKey, bool shared) const {
    return orLastError([&] {
        RegistryKey::recurseDeleteKey(getKeyPath(shared) + subKey, HKEY_LOCAL_MACHINE);
        return true;
    });
}

bool BasicSettings::getValueNames(const std::string& subKey, std::vector<std::string>& names,
                                  bool shared) const {
    return orLastError([&] {
        const auto key = RegistryKey::openExisting(getKeyPath(shared) + subKey);
        if (!key) return false;
        key->getValueNames(names, kMaxNames);
        return true;
    });
}

bool BasicSettings::getStringValues(const std::string& subKey, std::vector<NamedText>& texts,
                                    std::size_t mostTexts, bool shared) const {
    return orLastError([&] {
        const auto key = RegistryKey::openExisting(getKeyPath(shared) + subKey);
        if (!key) return false;
        std::vector<std::string> names;
        key->getValueNames(names, std::numeric_limits<std::uint32_t>::max());
        std::vector<NamedText> found;
        for (std::string& name : names) {
            std::string text;
            const bool isText =
                found.size() < mostTexts && orLastError([&] { return key->getValue(name, text); });
            found.push_back(
                {std::move(name), isText ? std::optional(std::move(text)) : std::nullopt});
        }
        std::ranges::move(found, std::back_inserter(texts));
        return true;
    });
}

}  // namespace jsw
