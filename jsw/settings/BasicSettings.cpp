#include "jsw/settings/BasicSettings.h"

#include "PublicLib/errors/Exception.h"
#include "jsw/settings/RegistryKey.h"

#include <windows.h>

#include <exception>
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

/// Runs one access to the registry; a failure becomes false and the thread's last error.
template <class Access>
bool guarded(const Access& access) {
    try {
        return access();
    } catch (const Exception& error) {
        SetLastError(static_cast<DWORD>(error.code()));
    } catch (const std::exception&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);  // a value or name too large to be held
    }
    return false;
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
bool BasicSettings::get(const std::string& subKey, const std::string& name, Value& value,
                        bool shared) const {
    return guarded([&] {
        // A missing key is ordinary: nothing is raised for it.
        const auto key = RegistryKey::openExisting(getKeyPath(shared) + subKey);
        if (!key) return false;
        if (key->getValue(name, value)) return true;
        SetLastError(ERROR_FILE_NOT_FOUND);
        return false;
    });
}

template <class Value>
bool BasicSettings::getOrDefault(const std::string& subKey, const std::string& name,
                                 const Value& defaultValue, Value& value, bool shared) const {
    return guarded([&] {
        const std::string path = getKeyPath(shared) + subKey;
        // A key that is there has a root above it: only a missing one asks for it.
        auto key = RegistryKey::openExisting(path);
        if (!key) {
            if (!rootExists()) return false;
            key.emplace(path, kCreate);
        }
        if (key->getValue(name, value)) return true;
        key->setValue(name, defaultValue);
        value = defaultValue;
        return true;
    });
}

template <class Value>
bool BasicSettings::set(const std::string& subKey, const std::string& name, const Value& value,
                        bool shared) const {
    return guarded([&] {
        RegistryKey(getKeyPath(shared) + subKey, kCreate).setValue(name, value);
        return true;
    });
}

bool BasicSettings::getDwordValue(const std::string& subKey, const std::string& name,
                                  std::uint32_t& value, bool shared) const {
    return get(subKey, name, value, shared);
}

bool BasicSettings::getStringValue(const std::string& subKey, const std::string& name,
                                   std::string& value, bool shared) const {
    return get(subKey, name, value, shared);
}

bool BasicSettings::read(const setting::Text& text, std::string& value) const {
    return getStringValue(text.key, text.name, value);
}

bool BasicSettings::read(const setting::Number& number, std::uint32_t& value) const {
    return getDwordValue(number.key, number.name, value);
}

bool BasicSettings::getBinaryValue(const std::string& subKey, const std::string& name,
                                   std::vector<std::uint8_t>& value, bool shared) const {
    return get(subKey, name, value, shared);
}

bool BasicSettings::getDwordValueOrDefault(const std::string& subKey, const std::string& name,
                                           std::uint32_t defaultValue, std::uint32_t& value,
                                           bool shared) const {
    return getOrDefault(subKey, name, defaultValue, value, shared);
}

bool BasicSettings::getStringValueOrDefault(const std::string& subKey, const std::string& name,
                                            const std::string& defaultValue, std::string& value,
                                            bool shared) const {
    return getOrDefault(subKey, name, defaultValue, value, shared);
}

bool BasicSettings::isUnreadable(std::uint32_t error) {
    return error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND &&
           error != ERROR_INVALID_DATATYPE && error != ERROR_INVALID_DATA;
}

bool BasicSettings::setDwordValue(const std::string& subKey, const std::string& name,
                                  std::uint32_t value, bool shared) const {
    return set(subKey, name, value, shared);
}

bool BasicSettings::setStringValue(const std::string& subKey, const std::string& name,
                                   const std::string& value, bool shared) const {
    return set(subKey, name, value, shared);
}

bool BasicSettings::deleteValue(const std::string& subKey, const std::string& name,
                                bool shared) const {
    return guarded([&] {
        RegistryKey(getKeyPath(shared) + subKey, kOpenOnly).deleteValue(name);
        return true;
    });
}

bool BasicSettings::deleteKey(const std::string& subKey, bool shared) const {
    return guarded([&] {
        RegistryKey::recurseDeleteKey(getKeyPath(shared) + subKey, HKEY_LOCAL_MACHINE);
        return true;
    });
}

bool BasicSettings::getValueNames(const std::string& subKey, std::vector<std::string>& names,
                                  bool shared) const {
    return guarded([&] {
        const auto key = RegistryKey::openExisting(getKeyPath(shared) + subKey);
        if (!key) return false;
        key->getValueNames(names, kMaxNames);
        return true;
    });
}

bool BasicSettings::getStringValues(const std::string& subKey, std::vector<NamedText>& texts,
                                    std::size_t mostTexts, bool shared) const {
    return guarded([&] {
        const auto key = RegistryKey::openExisting(getKeyPath(shared) + subKey);
        if (!key) return false;
        std::vector<std::string> names;
        key->getValueNames(names, std::numeric_limits<std::uint32_t>::max());
        std::vector<NamedText> found;
        for (std::string& name : names) {
            std::string text;
            const bool isText =
                found.size() < mostTexts && guarded([&] { return key->getValue(name, text); });
            found.push_back(
                {std::move(name), isText ? std::optional(std::move(text)) : std::nullopt});
        }
        texts.insert(texts.end(), std::make_move_iterator(found.begin()),
                     std::make_move_iterator(found.end()));
        return true;
    });
}

}  // namespace jsw
