#include "PublicLib/ini/IniReader.h"

#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <exception>
#include <limits>
#include <memory>
#include <new>
#include <optional>

namespace jsw {

namespace {

/// The file's size in bytes; nothing, with GetLastError() set, if it cannot be opened or is too
/// large for a buffer.
std::optional<std::uint32_t> sizeOfFile(const std::string& path) {
    const KernelHandle file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    if (!file || GetFileSizeEx(file.get(), &size) == FALSE) return std::nullopt;
    if (size.QuadPart > std::numeric_limits<std::uint32_t>::max()) {
        SetLastError(ERROR_FILE_TOO_LARGE);
        return std::nullopt;
    }
    return static_cast<std::uint32_t>(size.QuadPart);
}

}  // namespace

IniReader::IniReader(const std::string& fileName) : fileName_(fileName) {
    MethodTrace trace(component::kJsw, "IniReader::IniReader(iniFileName=", fileName, "):");
}

bool IniReader::build() {
    MethodTrace trace(component::kJsw, "IniReader::build():");
    parsed_ = false;
    if (fileName_.empty()) return false;
    const auto size = sizeOfFile(fileName_);
    if (!size) {
        trace.add("Could not open the settings file.errorCode =", GetLastError());
        return false;
    }
    trace.add("Size of the file=", *size);
    parsed_ = buildSections(*size) && (sections_.empty() || buildSectionsData(*size));
    return parsed_;
}

bool IniReader::buildSections(std::uint32_t bufferSize) {
    MethodTrace trace(component::kJsw, "IniReader::buildSections(bufferSize=", bufferSize, "):");
    try {
        const auto buffer = std::make_unique_for_overwrite<char[]>(bufferSize);
        const std::string_view names =
            filledPart(buffer.get(), bufferSize, [this](char* bytes, std::uint32_t size) {
                return GetPrivateProfileSectionNamesA(bytes, size, fileName_.c_str());
            });
        sections_ = splitNameList(names);
        return !names.empty();
    } catch (const std::exception&) {
        return false;  // no memory
    }
}

bool IniReader::buildSectionsData(std::uint32_t bufferSize) {
    MethodTrace trace(component::kJsw, "IniReader::buildSectionsData(bufferSize=", bufferSize,
                      "):");
    const std::unique_ptr<char[]> buffer(new (std::nothrow) char[bufferSize]);
    if (!buffer) {
        trace.add("Could not allocate memory for the buffer.");
        return false;
    }
    const auto fetch = [&](const std::string& section, const char* key) {
        SetLastError(ERROR_SUCCESS);
        return filledPart(buffer.get(), bufferSize, [&](char* bytes, std::uint32_t size) {
            return GetPrivateProfileStringA(section.c_str(), key, "", bytes, size,
                                            fileName_.c_str());
        });
    };
    try {
        for (const std::string& section : sections_) {
            const std::string_view list = fetch(section, nullptr);
            if (list.empty()) {
                trace.add("Could not retrieve key-value pairs for section=", section);
                continue;
            }
            const std::vector<std::string> keys = splitNameList(list);
            if (keys.empty()) trace.add("No key-value pairs found for section='", section, "'");
            IniPairs pairs;
            for (const std::string& key : keys) {
                const std::string_view value = fetch(section, key.c_str());
                // An empty value is valid; only the error distinguishes it from a missing one.
                if (value.empty() && GetLastError() == ERROR_FILE_NOT_FOUND) {
                    trace.add("Could not retrieve value for key='", key,
                              "' under section=", section);
                } else {
                    pairs.emplace_back(key, value);
                }
            }
            sectionData_[section] = std::move(pairs);
        }
        return true;
    } catch (const std::exception&) {
        return false;  // no memory
    }
}

void IniReader::getSectionData(const std::string& sectionName, IniPairs& pairs) const {
    MethodTrace trace(component::kJsw, "IniReader::getSectionData(sectionName=", sectionName, "):");
    pairs.clear();
    if (!parsed_) {
        trace.add("Unsuccessful parsing settings file. returning empty key-value pairs");
        return;
    }
    const auto section = sectionData_.find(sectionName);
    if (section != sectionData_.end()) pairs = section->second;
}

IniValueType IniReader::getValueType(const std::string& value, std::string& text) {
    MethodTrace trace(component::kJsw, "IniReader::getValueType(value=", value, "):");
    text.clear();
    if (value.empty()) return IniValueType::unknown;
    IniTypedValue parts = splitTypedValue(value);
    if (!parts.hasType) {
        trace.add("Could not find the type information for value=", value);
        return IniValueType::unknown;
    }
    if (!parts.text.empty()) {
        text = std::move(parts.text);
        trace.add("Parsed value for value='", value, "' is ='", text, "'");
    }
    return parts.type;
}

}  // namespace jsw
