#include "jsw/updates/InstalledFile.h"

#include "PublicLib/win/Paths.h"

#include <windows.h>

namespace jsw {

bool isPlainFileName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of("\\/:") == std::string_view::npos;
}

bool isFolder(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool isFileIn(const std::string& folder, const std::string& name) {
    if (!isPlainFileName(name)) return false;
    const DWORD attributes = GetFileAttributesA(joinPath(folder, name).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace jsw
