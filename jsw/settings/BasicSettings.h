#pragma once

#include "jsw/settings/SettingNames.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace jsw {

/// A value of a key that was listed.
struct NamedText {
    std::string name;
    std::optional<std::string> text;  ///< nothing: the value is no text, or was not read
};

/// Values below one root key of HKEY_LOCAL_MACHINE, in a store shared by all host programs or in
/// the one of this host.
///
/// Every call opens and closes a key of its own, so an object holds no handles and may be used on
/// any thread. Nothing is raised: a call that fails answers false, leaves its outputs as they were
/// and the Win32 error in GetLastError(), which is ERROR_FILE_NOT_FOUND for a missing value.
class BasicSettings {
  public:
    /// How many names of a key are listed where nothing else is asked for.
    static constexpr std::uint32_t kMaxNames = 100;

    /// @param root       path below HKEY_LOCAL_MACHINE; a trailing "\" is added when missing
    /// @param localName  name of the host's own store, or empty: then all keys lie below the root
    BasicSettings(std::string root, std::string localName);

    /// Read only; false when the key or value is missing or the value has another type.
    bool getDwordValue(const std::string& subKey, const std::string& name, std::uint32_t& value,
                       bool shared = false) const;
    bool getStringValue(const std::string& subKey, const std::string& name, std::string& value,
                        bool shared = false) const;
    bool getBinaryValue(const std::string& subKey, const std::string& name,
                        std::vector<std::uint8_t>& value, bool shared = false) const;

    bool read(const setting::Text& text, std::string& value) const;
    bool read(const setting::Number& number, std::uint32_t& value) const;

    /// The same, but a value that is missing is written with its default and returned; false,
    /// without writing, when the root key does not exist.
    bool getDwordValueOrDefault(const std::string& subKey, const std::string& name,
                                std::uint32_t defaultValue, std::uint32_t& value,
                                bool shared = false) const;
    bool getStringValueOrDefault(const std::string& subKey, const std::string& name,
                                 const std::string& defaultValue, std::string& value,
                                 bool shared = false) const;

    /// Whether the Win32 error of a read that answered false says that nobody knows the value. Not
    /// so for one that is missing or of another type: there a default counts.
    static bool isUnreadable(std::uint32_t error);

    /// Create the key when it is missing.
    bool setDwordValue(const std::string& subKey, const std::string& name, std::uint32_t value,
                       bool shared = false) const;
    bool setStringValue(const std::string& subKey, const std::string& name,
                        const std::string& value, bool shared = false) const;

    bool deleteValue(const std::string& subKey, const std::string& name, bool shared = false) const;
    /// Deletes the key and everything below it; one that does not exist is no failure.
    bool deleteKey(const std::string& subKey, bool shared = false) const;
    /// Appends the names of the key's values, kMaxNames at most; false when there is no such key.
    bool getValueNames(const std::string& subKey, std::vector<std::string>& names,
                       bool shared = false) const;
    /// Appends all of the key's values, the first ones with their texts; false when there is no
    /// such key.
    bool getStringValues(const std::string& subKey, std::vector<NamedText>& texts,
                         std::size_t mostTexts = kMaxNames, bool shared = false) const;

    /// Where the keys of a store lie, below HKEY_LOCAL_MACHINE; ends with "\".
    std::string getKeyPath(bool shared) const;
    bool rootExists() const;

  protected:
    static bool keyExists(const std::string& path);
    const std::string& root() const { return root_; }

  private:
    template <class Value>
    bool get(const std::string& subKey, const std::string& name, Value& value, bool shared) const;
    template <class Value>
    bool getOrDefault(const std::string& subKey, const std::string& name, const Value& defaultValue,
                      Value& value, bool shared) const;
    template <class Value>
    bool set(const std::string& subKey, const std::string& name, const Value& value,
             bool shared) const;

    std::string root_;
    std::string localName_;
};

}  // namespace jsw
