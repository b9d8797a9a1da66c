#pragma once

#include "PublicLib/errors/Exception.h"
#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <cstdint>
#include <exception>
#include <optional>
#include <string>
#include <vector>

namespace jsw {

class Security;

/// The outcome of looking for a key or a value.
enum class Read {
    found,
    missing,    ///< the value, or a key above it, does not exist
    wrongType,  ///< the value has another type or size
    refused,    ///< the system refused; the value may exist
};

/// The outcome for a Win32 error; 0 is success.
[[nodiscard]] Read readOutcome(std::uint32_t error);

/// An open registry key with all rights. New keys give everyone full access. Every failure except a
/// missing value raises Win32Exception and leaves outputs unchanged.
class RegistryKey {
  public:
    /// Opens the path, or creates it and the missing keys above it.
    RegistryKey(const std::string& path, bool createIfMissing, HKEY hive = HKEY_LOCAL_MACHINE);

    /// The key; nothing, with GetLastError() set, if it cannot be opened.
    [[nodiscard]] static std::optional<RegistryKey> openExisting(const std::string& path,
                                                                 HKEY hive = HKEY_LOCAL_MACHINE);

    /// Each returns false if the value does not exist and raises if it has another type. A text may
    /// also be a REG_EXPAND_SZ, which is not expanded.
    bool getValue(const std::string& name, std::uint32_t& value) const;
    bool getValue(const std::string& name, std::string& value) const;
    bool getValue(const std::string& name, std::vector<std::uint8_t>& value) const;

    void setValue(const std::string& name, std::uint32_t value);
    void setValue(const std::string& name, const std::string& value);
    void setValue(const std::string& name, const std::vector<std::uint8_t>& value);
    void deleteValue(const std::string& name);

    /// Appends the names of up to max sub-keys or values, in the registry's order.
    void getChildrenNames(std::vector<std::string>& names, std::uint32_t max) const;
    void getValueNames(std::vector<std::string>& names, std::uint32_t max) const;

    /// Deletes a key and everything below it; a missing key is not a failure. A key named
    /// "SOFTWARE" is emptied but never deleted. Links to other keys are deleted, not followed. The
    /// first key that cannot be opened or deleted ends the call.
    static void recurseDeleteKey(const std::string& path, HKEY hive);

    /// Creates a path component by component, for systems that cannot create it in one call.
    static void createByComponents(HKEY hive, const std::string& path, Security& security);

  private:
    RegistryKey() = default;
    LSTATUS open(HKEY hive, const std::string& path);
    void create(HKEY hive, const std::string& path);
    void set(const std::string& name, DWORD type, const void* data, std::size_t size,
             const char* failure);

    KeyHandle key_;
};

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

}  // namespace jsw
