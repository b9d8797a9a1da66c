#include "tools/jswctl/Host.h"

#include "PublicLib/os/Localize.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Paths.h"
#include "jsw/settings/Settings.h"
#include "tools/jswctl/Command.h"

#include <windows.h>

#include <system_error>

namespace jsw::ctl {

namespace {

bool isFolder(DWORD attributes) {
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}  // namespace

std::string inFull(const std::string& path) {
    std::string full(MAX_PATH, '\0');
    for (;;) {
        const auto size = static_cast<DWORD>(full.size());
        const DWORD length = GetFullPathNameA(path.c_str(), size, full.data(), nullptr);
        full.resize(length);
        if (length < size) return full;
    }
}

void addHostArgument(Command& command, std::string& host) {
    command.option("HOST.exe", host, "the program that loads jsw.dll").required();
}

void nameHost(const std::string& host) {
    const std::string path = inFull(host);
    if (fileNamePart(path).empty()) throw BadUse("'" + host + "' is not a file name");
    if (isFolder(GetFileAttributesA(path.c_str()))) {
        throw BadUse("'" + host + "' is a folder, not a program");
    }
    Localize::createInstanceFor(path);
    provideSettings();
}

void nameExistingHost(const std::string& host) {
    nameHost(host);
    if (GetFileAttributesA(Localize::getInstance()->modulePath().c_str()) ==
        INVALID_FILE_ATTRIBUTES) {
        throw BadUse("there is no program '" + host + "'");
    }
}

std::string storePath() {
    std::string path = Localize::getInstance()->getRegistryPath(StoreKind::local);
    path.pop_back();
    return path;
}

std::string storeName() {
    return "HKLM\\" + storePath();
}

std::string errorText(unsigned long code) {
    const std::error_code error(static_cast<int>(code), std::system_category());
    return concat("error ", code, ", ", error.message());
}

}  // namespace jsw::ctl
