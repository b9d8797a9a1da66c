#include "PublicLib/ini/SettingsInstaller.h"

#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <exception>
#include <new>

namespace jsw {

namespace {

constexpr char kNotParsed[] = "Settings file could not be parsed properly.";

LSTATUS writeValue(const std::string& path, const std::string& name, DWORD type, const void* data,
                   std::size_t size) {
    KeyHandle key;
    const LSTATUS status =
        RegCreateKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_ALL_ACCESS, nullptr, key.put(), nullptr);
    if (status != ERROR_SUCCESS) return status;
    return RegSetValueExA(key.get(), name.c_str(), 0, type, static_cast<const BYTE*>(data),
                          static_cast<DWORD>(size));
}

LSTATUS writeTypedValue(const std::string& path, const std::string& name, IniValueType type,
                        const std::string& text) {
    if (type == IniValueType::string) {
        return writeValue(path, name, REG_SZ, text.c_str(), text.size() + 1);
    }
    const DWORD number = leadingNumber(text);
    return writeValue(path, name, REG_DWORD, &number, sizeof(number));
}

bool installPair(MethodTrace& trace, const std::string& section, const std::string& key,
                 const std::string& value) {
    if (key.empty() || value.empty()) {  // a listed key is never empty; a value may be
        trace.add("Empty KeyValue pair found in Section='", section, "' where key='", key,
                  "' and value='", value, "'");
        return false;
    }
    std::string text;
    const IniValueType type = IniReader::getValueType(value, text);
    if (type == IniValueType::unknown) {
        trace.add("Could not retrieve the type information for value='", value, "' skipping....");
        return false;
    }
    const LSTATUS status = writeTypedValue(section, key, type, text);
    trace.add("Return Code for writing sectionName='", section, "',key='", key, "',value='", value,
              "' is = ", status);
    return status == ERROR_SUCCESS;
}

bool installSection(MethodTrace& trace, const IniReader& reader, const std::string& section) {
    if (section.empty()) {  // never happens: an empty name ends the profile functions' list
        trace.add("Empty Section name. Skipping..");
        return false;
    }
    IniPairs pairs;
    reader.getSectionData(section, pairs);
    if (pairs.empty()) {
        trace.add("Empty Section found. Skipping..");
        return false;
    }
    bool complete = true;
    for (const auto& [key, value] : pairs) {
        complete = installPair(trace, section, key, value) && complete;
    }
    return complete;
}

}  // namespace

SettingsInstaller::SettingsInstaller(const std::string& fileName) {
    MethodTrace trace(component::kJsw, "SettingsInstaller::SettingsInstaller(fileName=", fileName,
                      "):");
    try {
        reader_ = std::make_unique<IniReader>(fileName);
    } catch (const std::bad_alloc&) {
        trace.add("Could not allocate memory for INI reader. Settings file could not be parsed.");
        return;
    }
    if (reader_->build()) return;
    trace.add(kNotParsed);
    reader_.reset();
}

bool SettingsInstaller::installSettings() {
    MethodTrace trace(component::kJsw, "SettingsInstaller::installSettings():");
    if (!reader_) {
        trace.add(kNotParsed);
        return false;
    }
    if (reader_->sections().empty()) trace.add("No registry keys found in file to be installed.");
    bool complete = true;
    try {
        for (const std::string& section : reader_->sections()) {
            complete = installSection(trace, *reader_, section) && complete;
        }
    } catch (const std::exception&) {
        return false;  // no memory
    }
    return complete;
}

}  // namespace jsw
