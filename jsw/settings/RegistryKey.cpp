#include "jsw/settings/RegistryKey.h"

#include "PublicLib/errors/ErrorPlaces.h"
#include "PublicLib/locks/Security.h"
#include "PublicLib/os/OsVersion.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/EntryPoint.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <span>
#include <string_view>

namespace jsw {

namespace {

[[noreturn]] void raise(std::string message, LSTATUS status, ErrorPlace place) {
    throw Win32Exception(std::move(message), static_cast<std::uint32_t>(status), place);
}

/// A type of values that getValue() reads, and the errors that it raises.
struct ValueKind {
    DWORD type;
    DWORD otherType;  ///< is accepted, too
    const char* failure;
    ErrorPlace place;
};
constexpr ValueKind kNumber{REG_DWORD, REG_DWORD, "RegistryKey::getValue(ulong)",
                            place::kGetNumber};
constexpr ValueKind kText{REG_SZ, REG_EXPAND_SZ, "RegistryKey::getValue(string) ", place::kGetText};
constexpr ValueKind kBytes{REG_BINARY, REG_BINARY, "RegistryKey::getValue(binary)",
                           place::kGetBytes};

/// A raw value of the registry. A value of ordinary length needs only one query.
class RawValue {
  public:
    /// The value's bytes, which lie in this object; nothing if there is no such value. Raises if it
    /// has another type.
    std::optional<std::span<const BYTE>> read(HKEY key, const std::string& name,
                                              const ValueKind& kind) {
        const bool isText = kind.type == REG_SZ;
        DWORD type = REG_NONE;
        BYTE* data = short_.data();
        auto size = static_cast<DWORD>(short_.size());
        LSTATUS status = RegQueryValueExA(key, name.c_str(), nullptr, &type, data, &size);
        if (status == ERROR_FILE_NOT_FOUND) return std::nullopt;
        const bool exists = status == ERROR_SUCCESS || status == ERROR_MORE_DATA;
        if (!exists || (type != kind.type && type != kind.otherType)) {
            // A text that cannot be queried has no type; the error says "wrong type".
            const bool mismatch = type != kind.type && (exists || isText);
            raise(concat(kind.failure, name, mismatch ? " : incorrect value type" : ""),
                  exists ? ERROR_INVALID_DATATYPE : status, kind.place);
        }
        if (status == ERROR_MORE_DATA) {
            long_.resize(size);
            data = long_.data();
            status = RegQueryValueExA(key, name.c_str(), nullptr, &type, data, &size);
        }
        if (status != ERROR_SUCCESS) {
            raise((isText ? "RegistryKey::getValue() " : kind.failure) + name, status,
                  isText ? place::kGetLongText : kind.place);
        }
        return std::span<const BYTE>(data, size);
    }

  private:
    std::array<BYTE, 512> short_;
    std::vector<BYTE> long_;
};

KeyHandle createKey(HKEY hive, const std::string& path, Security& security, ErrorPlace place) {
    std::string noClass;
    KeyHandle key;
    DWORD disposition = 0;
    const LSTATUS status =
        RegCreateKeyExA(hive, path.c_str(), 0, noClass.data(), REG_OPTION_NON_VOLATILE,
                        KEY_ALL_ACCESS, security.attributes(), key.put(), &disposition);
    if (status != ERROR_SUCCESS) raise("RegistryKey::regCreateKeyEx()", status, place);
    return key;
}

}  // namespace

Read readOutcome(std::uint32_t error) {
    switch (error) {
        case ERROR_SUCCESS:
            return Read::found;
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return Read::missing;
        case ERROR_INVALID_DATATYPE:
        case ERROR_INVALID_DATA:
            return Read::wrongType;
        default:
            return Read::refused;
    }
}

RegistryKey::RegistryKey(const std::string& path, bool createIfMissing, HKEY hive) {
    const LSTATUS status = open(hive, path);
    if (status == ERROR_SUCCESS) return;
    if (!createIfMissing) raise("RegistryKey::regOpenKeyEx()", status, place::kKeyOpen);
    create(hive, path);
}

std::optional<RegistryKey> RegistryKey::openExisting(const std::string& path, HKEY hive) {
    RegistryKey key;
    const LSTATUS status = key.open(hive, path);
    if (status == ERROR_SUCCESS) return key;
    SetLastError(static_cast<DWORD>(status));
    return std::nullopt;
}

LSTATUS RegistryKey::open(HKEY hive, const std::string& path) {
    return RegOpenKeyExA(hive, path.c_str(), 0, KEY_ALL_ACCESS, key_.put());
}

void RegistryKey::create(HKEY hive, const std::string& path) {
    Security security;
    if (OsVersion::instance().isNtFamily()) {
        key_ = createKey(hive, path, security, place::kKeyCreate);
        return;
    }
    createByComponents(hive, path, security);
    const LSTATUS status = open(hive, path);
    if (status != ERROR_SUCCESS)
        raise("RegistryKey::regOpenKeyEx()", status, place::kKeyOpenCreated);
}

void RegistryKey::createByComponents(HKEY hive, const std::string& path, Security& security) {
    std::size_t end = 0;
    while (end < path.size()) {
        const std::size_t start = path.find_first_not_of('\\', end);
        if (start == std::string::npos) break;
        end = std::min(path.find('\\', start), path.size());
        createKey(hive, path.substr(0, end), security, place::kKeyCreateComponent);
    }
}

bool RegistryKey::getValue(const std::string& name, std::uint32_t& value) const {
    RawValue raw;
    const auto bytes = raw.read(key_.get(), name, kNumber);
    if (!bytes) return false;
    if (bytes->size() != sizeof value) {
        raise(kNumber.failure + name, ERROR_INVALID_DATA, kNumber.place);
    }
    std::memcpy(&value, bytes->data(), sizeof value);
    return true;
}

bool RegistryKey::getValue(const std::string& name, std::string& value) const {
    RawValue raw;
    const auto bytes = raw.read(key_.get(), name, kText);
    // A stored text need not have a terminator, and may have more than one.
    if (bytes) value.assign(bytes->begin(), std::ranges::find(*bytes, BYTE{0}));
    return bytes.has_value();
}

bool RegistryKey::getValue(const std::string& name, std::vector<std::uint8_t>& value) const {
    RawValue raw;
    const auto bytes = raw.read(key_.get(), name, kBytes);
    if (bytes) value.assign(bytes->begin(), bytes->end());
    return bytes.has_value();
}

void RegistryKey::set(const std::string& name, DWORD type, const void* data, std::size_t size,
                      const char* failure) {
    const LSTATUS status = RegSetValueExA(key_.get(), name.c_str(), 0, type,
                                          static_cast<const BYTE*>(data), static_cast<DWORD>(size));
    if (status != ERROR_SUCCESS) raise(failure + name, status, place::kSetValue);
}

void RegistryKey::setValue(const std::string& name, std::uint32_t value) {
    set(name, REG_DWORD, &value, sizeof(value), "RegistryKey::setValue(ulong): Unable to set ");
}

void RegistryKey::setValue(const std::string& name, const std::string& value) {
    set(name, REG_SZ, value.c_str(), value.size() + 1,
        "RegistryKey::setValue(string): Unable to set ");
}

void RegistryKey::setValue(const std::string& name, const std::vector<std::uint8_t>& value) {
    // The text about strings: see "Fixed interfaces" in docs/architecture.md.
    set(name, REG_BINARY, value.data(), value.size(),
        "RegistryKey::setValue(string): Unable to set ");
}

void RegistryKey::deleteValue(const std::string& name) {
    const LSTATUS status = RegDeleteValueA(key_.get(), name.c_str());
    if (status != ERROR_SUCCESS) raise("RegistryKey::deleteValue()", status, place::kDeleteValue);
}

namespace {

/// Appends the names that next(index, buffer, size) returns until there are no more or max is
/// reached. On failure appends nothing.
template <std::size_t bufferSize, class Next>
void enumerate(std::vector<std::string>& names, std::uint32_t max, const char* failure,
               const Next& next) {
    std::vector<std::string> found;
    std::string buffer(bufferSize, '\0');
    for (DWORD index = 0; index < max; ++index) {
        DWORD size = static_cast<DWORD>(buffer.size());
        const LSTATUS status = next(index, buffer.data(), &size);
        if (status == ERROR_NO_MORE_ITEMS) break;
        if (status != ERROR_SUCCESS) raise(failure, status, place::kListNames);
        found.emplace_back(buffer.data(), size);
    }
    std::ranges::move(found, std::back_inserter(names));
}

constexpr std::size_t kKeyNameSize = 257;      // 256 characters and the terminator
constexpr std::size_t kValueNameSize = 16384;  // the registry's longest value name

}  // namespace

void RegistryKey::getChildrenNames(std::vector<std::string>& names, std::uint32_t max) const {
    enumerate<kKeyNameSize>(
        names, max, "RegistryKey::getChildrenNames()", [&](DWORD index, char* name, DWORD* size) {
            return RegEnumKeyExA(key_.get(), index, name, size, nullptr, nullptr, nullptr, nullptr);
        });
}

void RegistryKey::getValueNames(std::vector<std::string>& names, std::uint32_t max) const {
    enumerate<kValueNameSize>(
        names, max, "RegistryKey:getValueNames()", [&](DWORD index, char* name, DWORD* size) {
            return RegEnumValueA(key_.get(), index, name, size, nullptr, nullptr, nullptr, nullptr);
        });
}

namespace {

[[noreturn]] void raiseOpenFailure(LSTATUS status) {
    raise("RegistryKey::recurseDeleteKey() RegOpenKey()", status, place::kDeleteKeyOpen);
}

/// The one key that is emptied but never deleted, at any level.
bool isProtected(std::string_view path) {
    while (path.ends_with('\\')) path.remove_suffix(1);
    return equalsIgnoringCase(path.substr(path.rfind('\\') + 1), "SOFTWARE");
}

/// Whether an open key is a link: it has no keys or values of its own but refers to another key.
bool isLink(HKEY key) {
    DWORD type = REG_NONE;
    return RegQueryValueExA(key, "SymbolicLinkValue", nullptr, &type, nullptr, nullptr) ==
               ERROR_SUCCESS &&
           type == REG_LINK;
}

/// Deletes an open link by its handle. RegDeleteKey needs a name and may follow the link.
LSTATUS deleteLink(HKEY link) {
    // Never unloaded, so its handle needs no owner.
    const HMODULE system = GetModuleHandleA("ntdll");
    auto* deleteKey = findEntryPoint<LONG NTAPI(HKEY)>(system, "NtDeleteKey");
    auto* toWin32 = findEntryPoint<ULONG NTAPI(LONG)>(system, "RtlNtStatusToDosError");
    if (deleteKey == nullptr || toWin32 == nullptr) return ERROR_PROC_NOT_FOUND;
    return static_cast<LSTATUS>(toWin32(deleteKey(link)));
}

void deleteChildren(HKEY key);

/// False if there is no such key. Deletes a link itself, not its target.
bool deleteTree(HKEY parent, const std::string& path) {
    KeyHandle key;
    LSTATUS status =
        RegOpenKeyExA(parent, path.c_str(), REG_OPTION_OPEN_LINK, KEY_ALL_ACCESS, key.put());
    if (status == ERROR_FILE_NOT_FOUND) return false;
    if (status != ERROR_SUCCESS) raiseOpenFailure(status);
    const bool link = isLink(key.get());
    if (!link) deleteChildren(key.get());
    if (isProtected(path)) return true;
    if (link) {
        status = deleteLink(key.get());
    } else {
        key.reset();
        status = RegDeleteKeyA(parent, path.c_str());
    }
    if (status != ERROR_SUCCESS) {
        raise("RegistryKey::recurseDeleteKey() RegDeleteKey()", status, place::kDeleteKey);
    }
    return true;
}

void deleteChildren(HKEY key) {
    std::array<char, kKeyNameSize> buffer{};
    DWORD size = kKeyNameSize;
    DWORD index = 0;
    std::string missing;
    while (RegEnumKeyExA(key, index, buffer.data(), &size, nullptr, nullptr, nullptr, nullptr) ==
           ERROR_SUCCESS) {
        const std::string child(buffer.data(), size);
        if (!deleteTree(key, child)) {
            // Another process may have deleted the key. If the same name is listed again, it cannot
            // be opened and would be listed for ever.
            if (child == missing) raiseOpenFailure(ERROR_FILE_NOT_FOUND);
            missing = child;
        }
        if (isProtected(child)) ++index;  // still exists
        size = kKeyNameSize;
    }
}

}  // namespace

void RegistryKey::recurseDeleteKey(const std::string& path, HKEY hive) {
    deleteTree(hive, path);
}

}  // namespace jsw
