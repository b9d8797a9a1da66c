#include "jsw/settings/BasicSettings.h"

#include "PublicLib/errors/Exception.h"

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

/// Runs one access to the registry; turns an exception into false and the thread's last error.
template <class Access>
bool orLastError(const Access& access) {
    try {
        return access();
    } catch (const Exception& error) {
        SetLastError(static_cast<DWORD>(error.code()));
    } catch (const std::exception&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);  // a value or name too large for memory
    }
    return false;
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

Read BasicSettings::read(const setting::Text& text, std::string& value) const {
    return get(text.key, text.name, value, false);
}

Read BasicSettings::read(const setting::Number& number, std::uint32_t& value) const {
    return get(number.key, number.name, value, false);
}

template <class Setting, class Value>
Read BasicSettings::getOrDefault(const Setting& setting, Value& value) const {
    const Read outcome = read(setting, value);
    if (outcome != Read::missing || !rootExists()) return outcome;
    if (!write(setting, setting.defaultValue)) return Read::missing;
    value = setting.defaultValue;
    return Read::found;
}

Read BasicSettings::readOrWriteDefault(const setting::Text& text, std::string& value) const {
    return getOrDefault(text, value);
}

Read BasicSettings::readOrWriteDefault(const setting::Number& number, std::uint32_t& value) const {
    return getOrDefault(number, value);
}

bool BasicSettings::write(const setting::Text& text, const std::string& value) const {
    return setValue(text.key, text.name, value);
}

bool BasicSettings::write(const setting::Number& number, std::uint32_t value) const {
    return setValue(number.key, number.name, value);
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
        texts.insert(texts.end(), std::make_move_iterator(found.begin()),
                     std::make_move_iterator(found.end()));
        return true;
    });
}

}  // namespace jsw
