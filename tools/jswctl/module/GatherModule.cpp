#include "tools/jswctl/module/GatherModule.h"

#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "tools/jswctl/Host.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <set>
#include <vector>

namespace jsw::ctl {

namespace {

constexpr std::size_t kDeepest = 16;               // levels of dependencies
constexpr DWORD kLargestFile = 512 * 1024 * 1024;  // of a module, in bytes

bool isFile(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

/// The bytes of a file; false, with GetLastError() set, if they cannot be read.
bool readBytes(const std::string& path, std::vector<char>& bytes) {
    const KernelHandle file(CreateFileA(path.c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return false;
    DWORD high = 0;
    const DWORD size = GetFileSize(file.get(), &high);
    if (high != 0 || size > kLargestFile) {
        SetLastError(ERROR_FILE_TOO_LARGE);
        return false;
    }
    bytes.resize(size);
    DWORD read = 0;
    if (ReadFile(file.get(), bytes.data(), size, &read, nullptr) == FALSE) return false;
    bytes.resize(read);
    return true;
}

/// Windows' search path for the libraries that a module needs.
std::vector<std::string> searchFolders(const std::string& hostFolder) {
    std::array<char, MAX_PATH> windows{};
    GetWindowsDirectoryA(windows.data(), MAX_PATH);
    std::vector<std::string> folders = {hostFolder, systemFolder(), windows.data(), "."};
    const char* path = std::getenv("PATH");
    const std::string list = path != nullptr ? path : "";
    for (std::size_t start = 0; start < list.size();) {
        const std::size_t end = std::min(list.find(';', start), list.size());
        if (end > start) folders.push_back(list.substr(start, end - start));
        start = end + 1;
    }
    return folders;
}

/// The file of this name in the first folder that has one; empty if there is none.
std::string findIn(const std::vector<std::string>& folders, const std::string& name) {
    for (const std::string& folder : folders) {
        std::string path = joinPath(folder, name);
        if (isFile(path)) return path;
    }
    return {};
}

/// A bare name is searched in several folders, a path is used unchanged.
std::string whereWindowsFinds(const std::string& path, const std::string& hostFolder) {
    if (path.find('\\') != std::string::npos) return path;
    const std::string found = findIn(searchFolders(hostFolder), path);
    return found.empty() ? path : found;
}

/// API set names, which are not files; Windows resolves them.
bool isVirtualName(const std::string& name) {
    const std::string lowered = toLower(name);
    return lowered.starts_with("api-") || lowered.starts_with("ext-");
}

/// Follows the dependencies of libraries.
class DependencySearch {
  public:
    DependencySearch(const std::string& hostFolder, std::vector<MissingLibrary>& missing)
        : folders_(searchFolders(hostFolder)), missing_(missing) {}

    void follow(const PeFile& file, const std::string& fileName, std::size_t depth = 0) {
        for (const std::string& name : file.imports) {
            if (isVirtualName(name) || !seen_.insert(toLower(name)).second) continue;
            const std::string path = findIn(folders_, name);
            if (path.empty()) {
                missing_.push_back({name, fileName});
            } else if (depth < kDeepest && !isSystemFile(path)) {
                std::vector<char> bytes;
                if (readBytes(path, bytes)) follow(readPeFile(bytes), name, depth + 1);
            }
        }
    }

  private:
    /// Windows' own libraries are assumed to be complete.
    static bool isSystemFile(const std::string& path) {
        return equalsIgnoringCase(folderPart(path), systemFolder() + "\\");
    }

    std::vector<std::string> folders_;
    std::vector<MissingLibrary>& missing_;
    std::set<std::string> seen_;
};

}  // namespace

ModuleFacts gatherModule(const ModuleKind& kind, const std::string& path,
                         const std::string& hostFolder) {
    ModuleFacts facts;
    facts.kind = &kind;
    facts.fullPath = inFull(whereWindowsFinds(path, hostFolder));
    const DWORD attributes = GetFileAttributesA(facts.fullPath.c_str());
    facts.exists = attributes != INVALID_FILE_ATTRIBUTES;
    facts.isFolder = facts.exists && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (!facts.exists || facts.isFolder) return facts;
    std::vector<char> bytes;
    if (!readBytes(facts.fullPath, bytes)) {
        facts.unreadable = errorText(GetLastError());
        return facts;
    }
    facts.file = readPeFile(bytes);
    if (facts.file.problem.empty() && facts.file.machine == kMachineX64) {
        DependencySearch(hostFolder, facts.missing)
            .follow(facts.file, std::string(fileNamePart(facts.fullPath)));
    }
    return facts;
}

}  // namespace jsw::ctl
