#include "samples/common/HostStore.h"

#include "common/Files.h"
#include "common/Letters.h"
#include <jsw/product_lines.h>

#include <windows.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

namespace jsw::sample {
namespace {

constexpr size_t kLocalIdLength = 4;
constexpr size_t kPrefixLength = 2;

/** The library's path for the settings of the program with this id, which may not exist. */
std::string storePath(const std::string& localId) {
    constexpr struct {
        const char* prefix;
        const char* key;
    } kLines[] = {
#define JSW_ROW(prefix, key, nonInkjet, manufacturer) {prefix, key},
        JSW_PRODUCT_LINES(JSW_ROW)
#undef JSW_ROW
    };
    const std::string prefix = localId.substr(0, kPrefixLength);
    const auto* line = std::find_if(std::begin(kLines), std::end(kLines),
                                    [&](const auto& row) { return prefix == row.prefix; });
    const char* key = line == std::end(kLines) ? JSW_NO_PRODUCT_LINE : line->key;
    return std::string("Software\\") + key + "\\JSW\\Local\\" + localId + "\\";
}

struct KeyCloser {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

Key openKey(const std::string& path) {
    HKEY key = nullptr;
    const LSTATUS result = RegOpenKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &key);
    return Key(result == ERROR_SUCCESS ? key : nullptr);
}

/** The bytes of a value of one of two types; nothing if it is missing, or without a store. */
std::optional<std::vector<char>> readValue(const std::string& store, const std::string& subKey,
                                           const std::string& name, DWORD type, DWORD otherType) {
    const Key key = store.empty() ? Key() : openKey(store + subKey);
    DWORD found = 0;
    DWORD size = 0;
    if (!key ||
        RegQueryValueExA(key.get(), name.c_str(), nullptr, &found, nullptr, &size) !=
            ERROR_SUCCESS ||
        (found != type && found != otherType)) {
        return std::nullopt;
    }
    std::vector<char> bytes(size);
    if (RegQueryValueExA(key.get(), name.c_str(), nullptr, &found,
                         reinterpret_cast<BYTE*>(bytes.data()), &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    bytes.resize(size);
    return bytes;
}

}  // namespace

std::string hostId() {
    const std::string program = common::moduleFileName(nullptr);
    return common::toLower(program.substr(program.find_last_of('\\') + 1, kLocalIdLength));
}

HostStore::HostStore() : HostStore(hostId()) {
}

HostStore::HostStore(const std::string& localId) : path_(storePath(common::toLower(localId))) {
    if (!openKey(path_)) path_.clear();
}

std::string HostStore::text(const std::string& subKey, const std::string& name,
                            const std::string& fallback) const {
    const auto bytes = readValue(path_, subKey, name, REG_SZ, REG_EXPAND_SZ);
    if (!bytes) return fallback;
    // A stored text may have no terminator.
    std::string value(bytes->begin(), bytes->end());
    value.resize(value.find('\0') == std::string::npos ? value.size() : value.find('\0'));
    return value.empty() ? fallback : value;
}

uint32_t HostStore::number(const std::string& subKey, const std::string& name,
                           uint32_t fallback) const {
    const auto bytes = readValue(path_, subKey, name, REG_DWORD, REG_DWORD);
    if (!bytes || bytes->size() != sizeof(uint32_t)) return fallback;
    uint32_t value = 0;
    std::copy(bytes->begin(), bytes->end(), reinterpret_cast<char*>(&value));
    return value;
}

bool HostStore::setText(const std::string& subKey, const std::string& name,
                        const std::string& value) const {
    return setValue(subKey, name, REG_SZ, value.c_str(), value.size() + 1);
}

bool HostStore::setNumber(const std::string& subKey, const std::string& name,
                          uint32_t value) const {
    return setValue(subKey, name, REG_DWORD, &value, sizeof value);
}

bool HostStore::setValue(const std::string& subKey, const std::string& name, uint32_t type,
                         const void* data, size_t size) const {
    if (path_.empty()) {
        return false;  // no store: do not create an incomplete one
    }
    HKEY handle = nullptr;
    if (RegCreateKeyExA(HKEY_LOCAL_MACHINE, (path_ + subKey).c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                        nullptr, &handle, nullptr) != ERROR_SUCCESS) {
        return false;
    }
    const Key key(handle);
    return RegSetValueExA(key.get(), name.c_str(), 0, type, static_cast<const BYTE*>(data),
                          static_cast<DWORD>(size)) == ERROR_SUCCESS;
}

std::string HostStore::dataFile(const std::string& subKey, const std::string& name,
                                const std::string& fallback) const {
    std::string folder =
        text("Settings\\", "DataPath", common::moduleFolder(common::thisModule()) + "data");
    if (folder.back() != '\\') folder += '\\';
    return common::fullPath(folder + text(subKey, name, fallback));
}

}  // namespace jsw::sample
