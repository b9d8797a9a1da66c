#include "tools/jswctl/store/SettingsFile.h"

#include "PublicLib/ini/IniReader.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Paths.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/settings/SettingNames.h"

#include <windows.h>

#include <algorithm>

namespace jsw::ctl {

namespace {

constexpr char kText[] = "string:";
constexpr char kNumber[] = "dword:";

/// The value as an installation writes it: a number without trailing text.
std::string installed(const std::string& value) {
    const IniTypedValue typed = splitTypedValue(value);
    return typed.type == IniValueType::dword ? concat(kNumber, leadingNumber(typed.text)) : value;
}

std::optional<std::string> storedValue(const std::string& key, const std::string& name) {
    KeyHandle handle;
    DWORD type = 0;
    DWORD size = 0;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, key.c_str(), 0, KEY_READ, handle.put()) !=
            ERROR_SUCCESS ||
        RegQueryValueExA(handle.get(), name.c_str(), nullptr, &type, nullptr, &size) !=
            ERROR_SUCCESS) {
        return std::nullopt;
    }
    std::string bytes(size, '\0');
    RegQueryValueExA(handle.get(), name.c_str(), nullptr, &type,
                     reinterpret_cast<BYTE*>(bytes.data()), &size);
    if (type == REG_DWORD && size == sizeof(DWORD)) {
        DWORD number = 0;
        std::copy_n(bytes.data(), size, reinterpret_cast<char*>(&number));
        return concat(kNumber, number);
    }
    if (type == REG_SZ) return concat(kText, bytes.c_str());
    return concat("type ", type);
}

bool isKey(const std::string& path, const std::string& store, const char* key) {
    std::string full = joinPath(store, key);
    while (full.back() == '\\') full.pop_back();
    return isBelow(path, full);
}

template <class Setting>
bool isSetting(const FileEntry& entry, const std::string& store, const Setting& setting) {
    return equalsIgnoringCase(joinPath(entry.section, ""),
                              joinPath(joinPath(store, setting.key), "")) &&
           equalsIgnoringCase(entry.name, setting.name);
}

}  // namespace

SettingsFile readSettingsFile(const std::string& path) {
    SettingsFile file;
    file.path = path;
    file.exists = GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
    IniReader reader(path);
    file.parsed = file.exists && reader.build() && !reader.sections().empty();
    if (!file.parsed) return file;
    file.sections = reader.sections();
    for (const std::string& section : file.sections) {
        IniPairs pairs;
        reader.getSectionData(section, pairs);
        for (const auto& [name, value] : pairs) {
            file.entries.push_back({section, name, installed(value), storedValue(section, name)});
        }
    }
    return file;
}

bool FileEntry::hasType() const {
    return splitTypedValue(value).type != IniValueType::unknown;
}

std::size_t SettingsFile::installable() const {
    return static_cast<std::size_t>(std::ranges::count_if(entries, &FileEntry::hasType));
}

bool SettingsFile::reaches(const std::string& key) const {
    return std::ranges::any_of(sections,
                               [&](const std::string& section) { return isBelow(section, key); });
}

void writeEntry(const FileEntry& entry) {
    const IniTypedValue typed = splitTypedValue(entry.value);
    RegistryKey key(entry.section, true);
    if (typed.type == IniValueType::string) key.setValue(entry.name, typed.text);
    if (typed.type == IniValueType::dword) key.setValue(entry.name, leadingNumber(typed.text));
}

bool isBelow(const std::string& path, const std::string& key) {
    return equalsIgnoringCase(path.substr(0, key.size()), key) &&
           (path.size() == key.size() || path[key.size()] == '\\');
}

bool isMachinesOwn(const FileEntry& entry, const std::string& store, bool modulesUpdated,
                   bool dataUpdated) {
    if (!entry.stored) return false;
    const auto inKey = [&](const char* key) { return isKey(entry.section, store, key); };
    const auto is = [&](const auto& setting) { return isSetting(entry, store, setting); };
    if (entry.section.find("\\IjPrtSettings") != std::string::npos || inKey(setting::kGuiKey) ||
        inKey(setting::kHistoryIdsKey) || inKey(setting::kDefaultBillboardKey) ||
        inKey(setting::kUpdatedFilesKey)) {
        return true;
    }
    if (is(setting::kCheckForUpdates) || is(setting::kDateLastChecked) ||
        is(setting::kDataUpdated) || is(setting::kCompleteSoftwareUpdated)) {
        return true;
    }
    if (modulesUpdated && (is(setting::kCatalogModule) || is(setting::kRulesEngineModule) ||
                           is(setting::kViewModule))) {
        return true;
    }
    return dataUpdated && (is(setting::kDataPath) || is(setting::kBillBoardVersionFile));
}

}  // namespace jsw::ctl
