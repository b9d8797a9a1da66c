#pragma once

#include "jsw/settings/RegistryKey.h"
#include "jsw/settings/SettingNames.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace jsw {

/// A listed value of a key.
struct NamedText {
    std::string name;
    std::optional<std::string> text;  ///< nothing: the value is not a text, or was not read
};

/// Values below one root key of HKEY_LOCAL_MACHINE, in the store shared by all host programs or in
/// this host's own.
///
/// Thread-safe: every call opens and closes its own key, so an object holds no handles. Nothing is
/// raised: a call that fails returns false, leaves its outputs unchanged and sets GetLastError(),
/// to ERROR_FILE_NOT_FOUND for a missing value.
class BasicSettings {
  public:
    /// The default for the number of listed names of a key.
    static constexpr std::uint32_t kMaxNames = 100;

    /// @param root       path below HKEY_LOCAL_MACHINE; a missing trailing "\" is added
    /// @param localName  name of the host's own store, or empty: then all keys lie below the root
    BasicSettings(std::string root, std::string localName);

    /// Read only. The value is a number (std::uint32_t), a text (std::string) or bytes
    /// (std::vector<std::uint8_t>); false if the key or value is missing or has another type.
    template <class Value>
    bool getValue(const std::string& subKey, const std::string& name, Value& value,
                  bool shared = false) const {
        return get(subKey, name, value, shared) == Read::found;
    }

    /// The same for a setting of the local store; returns the outcome.
    template <class Setting>
    Read read(const Setting& setting, typename Setting::Value& value) const {
        return get(setting.key, setting.name, value, false);
    }

    /// The same, but for a missing value the default is written and returned. Read::missing if the
    /// default cannot be written, or if the root key does not exist, which is not created.
    template <class Setting>
    Read readOrWriteDefault(const Setting& setting, typename Setting::Value& value) const {
        const Read outcome = read(setting, value);
        if (outcome != Read::missing || !rootExists()) return outcome;
        if (!write(setting, setting.defaultValue)) return Read::missing;
        value = setting.defaultValue;
        return Read::found;
    }

    /// The text of a setting of the local store; empty if it cannot be read.
    std::string textOf(const setting::Text& setting) const {
        std::string text;
        return read(setting, text) == Read::found ? text : std::string();
    }

    /// Create a missing key.
    bool setValue(const std::string& subKey, const std::string& name, std::uint32_t value,
                  bool shared = false) const;
    bool setValue(const std::string& subKey, const std::string& name, const std::string& value,
                  bool shared = false) const;
    template <class Setting>
    bool write(const Setting& setting, const typename Setting::Value& value) const {
        return setValue(setting.key, setting.name, value);
    }

    bool deleteValue(const std::string& subKey, const std::string& name, bool shared = false) const;
    /// Deletes the key and everything below it; a missing key is not a failure.
    bool deleteKey(const std::string& subKey, bool shared = false) const;
    /// Appends the names of the key's values, kMaxNames at most; false if there is no such key.
    bool getValueNames(const std::string& subKey, std::vector<std::string>& names,
                       bool shared = false) const;
    /// Appends all of the key's values, the first ones with their texts; false when there is no
    /// such key.
    bool getStringValues(const std::string& subKey, std::vector<NamedText>& texts,
                         std::size_t mostTexts = kMaxNames, bool shared = false) const;

    /// The path of a store's keys below HKEY_LOCAL_MACHINE; ends with "\".
    std::string getKeyPath(bool shared) const;
    bool rootExists() const;

  protected:
    static bool keyExists(const std::string& path);
    const std::string& root() const { return root_; }

  private:
    template <class Value>
    Read get(const std::string& subKey, const std::string& name, Value& value, bool shared) const;

    std::string root_;
    std::string localName_;
};

}  // namespace jsw
