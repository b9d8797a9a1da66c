#include "jsw/settings/RegistryKey.h"

#include "PublicLib/errors/Exception.h"
#include "PublicLib/os/OsVersion.h"
#include "PublicLib/text/Text.h"

#include <algorithm>
#include <array>

namespace jsw {

namespace {

[[noreturn]] void raise(std::string message, LSTATUS status, std::uint32_t line) {
    throw Win32Exception(std::move(message), static_cast<std::uint32_t>(status), "RegistryKey",
                         line);
}

struct ValueInfo {
    bool exists;
    LSTATUS status;
    DWORD type;
    DWORD size;

    bool is(DWORD wanted) const { return status == ERROR_SUCCESS && type == wanted; }
    bool hasOtherTypeThan(DWORD wanted) const { return status == ERROR_SUCCESS && type != wanted; }
    /// The error to report: a mismatch has none of its own.
    LSTATUS error() const { return status == ERROR_SUCCESS ? ERROR_INVALID_DATATYPE : status; }
};

ValueInfo query(HKEY key, const std::string& name) {
    ValueInfo info{};
    info.status = RegQueryValueExA(key, name.c_str(), nullptr, &info.type, nullptr, &info.size);
    info.exists = info.status != ERROR_FILE_NOT_FOUND;
    return info;
}

std::string mismatchSuffix(bool mismatch) {
    return mismatch ? " : incorrect value type" : "";
}

KeyHandle createKey(HKEY hive, const std::string& path, REGSAM access, Security& security,
                    std::uint32_t line) {
    std::string noClass;
    KeyHandle key;
    DWORD disposition = 0;
    const LSTATUS status =
        RegCreateKeyExA(hive, path.c_str(), 0, noClass.data(), REG_OPTION_NON_VOLATILE, access,
                        security.attributes(), key.put(), &disposition);
    if (status != ERROR_SUCCESS) raise("RegistryKey::regCreateKeyEx()", status, line);
    return key;
}

}  // namespace

RegistryKey::RegistryKey(const std::string& path, bool createIfMissing, HKEY hive) {
    LSTATUS status = ERROR_SUCCESS;
    if (open(hive, path, status)) return;
    if (!createIfMissing) raise("RegistryKey::regOpenKeyEx()", status, 61);
    create(hive, path);
}

bool RegistryKey::open(HKEY hive, const std::string& path, LSTATUS& status) {
    status = RegOpenKeyExA(hive, path.c_str(), 0, access_, key_.put());
    return status == ERROR_SUCCESS;
}

void RegistryKey::create(HKEY hive, const std::string& path) {
    if (OsVersion::instance().isNtFamily()) {
        key_ = createKey(hive, path, access_, security_, 73);
        return;
    }
    createByComponents(hive, path, security_);
    LSTATUS status = ERROR_SUCCESS;
    if (!open(hive, path, status)) raise("RegistryKey::regOpenKeyEx()", status, 79);
}

void RegistryKey::createByComponents(HKEY hive, const std::string& path, Security& security) {
    std::size_t end = 0;
    while (end < path.size()) {
        const std::size_t start = path.find_first_not_of('\\', end);
        if (start == std::string::npos) break;
        end = std::min(path.find('\\', start), path.size());
        createKey(hive, path.substr(0, end), KEY_ALL_ACCESS, security, 88);
    }
}

bool RegistryKey::getValue(const std::string& name, std::uint32_t& value) const {
    const ValueInfo info = query(key_.get(), name);
    if (!info.exists) return false;
    DWORD data = 0;
    DWORD size = sizeof(data);
    LSTATUS status = info.error();
    if (info.is(REG_DWORD)) {
        status = RegQueryValueExA(key_.get(), name.c_str(), nullptr, nullptr,
                                  reinterpret_cast<BYTE*>(&data), &size);
        if (status == ERROR_SUCCESS && size != sizeof(data)) status = ERROR_INVALID_DATA;
    }
    if (status != ERROR_SUCCESS) {
        raise(concat("RegistryKey::getValue(ulong)", name,
                     mismatchSuffix(info.hasOtherTypeThan(REG_DWORD))),
              status, 103);
    }
    value = data;
    return true;
}

bool RegistryKey::getValue(const std::string& name, std::string& value) const {
    const ValueInfo info = query(key_.get(), name);
    if (!info.exists) return false;
    if (!info.is(REG_SZ) && !info.is(REG_EXPAND_SZ)) {
        raise(concat("RegistryKey::getValue(string) ", name, mismatchSuffix(info.type != REG_SZ)),
              info.error(), 121);
    }
    std::string text(info.size, '\0');
    DWORD size = info.size;
    const LSTATUS status = RegQueryValueExA(key_.get(), name.c_str(), nullptr, nullptr,
                                            reinterpret_cast<BYTE*>(text.data()), &size);
    if (status != ERROR_SUCCESS) {
        raise(concat("RegistryKey::getValue() ", name), status, 129);
    }
    // A stored text need not have a terminator, and may have more than one.
    text.resize(std::min<std::size_t>(size, text.size()));
    value = text.substr(0, text.find('\0'));
    return true;
}

bool RegistryKey::getValue(const std::string& name, std::vector<std::uint8_t>& value) const {
    const ValueInfo info = query(key_.get(), name);
    if (!info.exists) return false;
    std::vector<std::uint8_t> data(info.size);
    DWORD size = info.size;
    LSTATUS status = info.error();
    if (info.is(REG_BINARY)) {
        status = RegQueryValueExA(key_.get(), name.c_str(), nullptr, nullptr, data.data(), &size);
    }
    if (status != ERROR_SUCCESS) {
        raise(concat("RegistryKey::getValue(binary)", name,
                     mismatchSuffix(info.hasOtherTypeThan(REG_BINARY))),
              status, 150);
    }
    data.resize(std::min<std::size_t>(size, data.size()));
    value = std::move(data);
    return true;
}

void RegistryKey::set(const std::string& name, DWORD type, const void* data, std::size_t size,
                      const char* failure) {
    const LSTATUS status = RegSetValueExA(key_.get(), name.c_str(), 0, type,
                                          static_cast<const BYTE*>(data), static_cast<DWORD>(size));
    if (status != ERROR_SUCCESS) raise(failure + name, status, 163);
}

void RegistryKey::setValue(const std::string& name, std::uint32_t value) {
    set(name, REG_DWORD, &value, sizeof(value), "RegistryKey::setValue(ulong): Unable to set ");
}

void RegistryKey::setValue(const std::string& name, const std::string& value) {
    set(name, REG_SZ, value.c_str(), value.size() + 1,
        "RegistryKey::setValue(string): Unable to set ");
}

void RegistryKey::setValue(const std::string& name, const std::vector<std::uint8_t>& value) {
    // The message speaks of a string, as the log has always done for binary values.
    set(name, REG_BINARY, value.data(), value.size(),
        "RegistryKey::setValue(string): Unable to set ");
}

void RegistryKey::deleteValue(const std::string& name) {
    const LSTATUS status = RegDeleteValueA(key_.get(), name.c_str());
    if (status != ERROR_SUCCESS) raise("RegistryKey::deleteValue()", status, 182);
}

namespace {

/// Appends the names that next(index, buffer, size) gives until it has no more or max is reached.
template <std::size_t bufferSize, class Next>
void enumerate(std::vector<std::string>& names, std::uint32_t max, const char* failure,
               const Next& next) {
    std::string buffer(bufferSize, '\0');
    for (DWORD index = 0; index < max; ++index) {
        DWORD size = static_cast<DWORD>(buffer.size());
        const LSTATUS status = next(index, buffer.data(), &size);
        if (status == ERROR_NO_MORE_ITEMS) return;
        if (status != ERROR_SUCCESS) raise(failure, status, 196);
        names.emplace_back(buffer.data(), size);
    }
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

/// The one key that is emptied but never deleted.
bool isProtected(const std::string& name) {
    return equalsIgnoringCase(name, "SOFTWARE");
}

void deleteChildren(HKEY key) {
    std::array<char, kKeyNameSize> buffer{};
    DWORD size = kKeyNameSize;
    DWORD index = 0;
    while (RegEnumKeyExA(key, index, buffer.data(), &size, nullptr, nullptr, nullptr, nullptr) ==
           ERROR_SUCCESS) {
        const std::string child(buffer.data(), size);
        RegistryKey::recurseDeleteKey(child, key);
        if (isProtected(child)) ++index;  // it is still there
        size = kKeyNameSize;
    }
}

}  // namespace

void RegistryKey::recurseDeleteKey(const std::string& path, HKEY hive) {
    KeyHandle key;
    LSTATUS status = RegOpenKeyExA(hive, path.c_str(), 0, KEY_ALL_ACCESS, key.put());
    if (status == ERROR_FILE_NOT_FOUND) return;
    if (status != ERROR_SUCCESS) {
        raise("RegistryKey::recurseDeleteKey() RegOpenKey()", status, 226);
    }
    deleteChildren(key.get());
    key.reset();
    if (isProtected(path)) return;
    status = RegDeleteKeyA(hive, path.c_str());
    if (status != ERROR_SUCCESS) {
        raise("RegistryKey::recurseDeleteKey() RegDeleteKey()", status, 239);
    }
}

}  // namespace jsw
