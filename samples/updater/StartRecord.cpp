#include "samples/updater/StartRecord.h"

#include <windows.h>

#include <cstdio>
#include <fstream>
#include <iterator>

namespace jsw::sample {
namespace {

std::string userName() {
    char name[257] = {};  // the longest user name and its terminator
    DWORD size = static_cast<DWORD>(std::size(name));
    return GetUserNameA(name, &size) != FALSE ? name : "unknown";
}

std::string session() {
    DWORD id = 0;
    return ProcessIdToSessionId(GetCurrentProcessId(), &id) != FALSE ? std::to_string(id)
                                                                     : "unknown";
}

std::string workingFolder() {
    std::string folder(32768, '\0');  // the longest path
    folder.resize(GetCurrentDirectoryA(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

const char* elevation() {
    HANDLE token = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) == FALSE) return "unknown";
    TOKEN_ELEVATION answer = {};
    DWORD size = 0;
    const BOOL known = GetTokenInformation(token, TokenElevation, &answer, sizeof answer, &size);
    CloseHandle(token);
    return known == FALSE ? "unknown" : answer.TokenIsElevated != 0 ? "yes" : "no";
}

}  // namespace

std::string localTime() {
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    char text[32] = {};
    std::snprintf(text, std::size(text), "%04u-%02u-%02u %02u:%02u:%02u", now.wYear, now.wMonth,
                  now.wDay, now.wHour, now.wMinute, now.wSecond);
    return text;
}

std::vector<std::string> howStarted(bool elevationAsked) {
    return {
        "started: " + localTime(),
        std::string("command line: ") + GetCommandLineA(),
        std::string("elevation asked for: ") + (elevationAsked ? "yes" : "no"),
        std::string("elevated: ") + elevation(),
        "user: " + userName(),
        "session: " + session(),
        "working folder: " + workingFolder(),
    };
}

bool appendLines(const std::string& file, const std::vector<std::string>& lines) {
    std::ofstream stream(file, std::ios::app);
    for (const std::string& line : lines) stream << line << '\n';
    stream.close();
    return !stream.fail();
}

}  // namespace jsw::sample
