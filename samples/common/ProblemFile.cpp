#include "samples/common/ProblemFile.h"

#include "samples/common/HostStore.h"
#include "samples/common/Report.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>

namespace jsw::sample {
namespace {

std::string problemFile(const std::string& path) {
    const char* folder = std::getenv("ALLUSERSPROFILE");
    const std::string name = path.substr(path.find_last_of('\\') + 1);
    return std::string(folder != nullptr ? folder : ".") + "\\" + hostId() + name + "-problem.txt";
}

std::string now() {
    SYSTEMTIME time = {};
    GetLocalTime(&time);
    char text[32] = {};
    std::snprintf(text, sizeof text, "%04d/%02d/%02d-%02d:%02d:%02d", time.wYear, time.wMonth,
                  time.wDay, time.wHour, time.wMinute, time.wSecond);
    return text;
}

}  // namespace

void reportProblem(const std::string& path, const std::string& problem) {
    report(path + ": " + problem);
    // Not a C++ stream, which leaks an index of thread-local storage.
    std::FILE* const file = std::fopen(problemFile(path).c_str(), "w");
    if (file == nullptr) return;
    const std::string line = now() + ' ' + path + ": " + problem + '\n';
    std::fputs(line.c_str(), file);
    std::fclose(file);
}

void forgetProblem(const std::string& path) {
    std::remove(problemFile(path).c_str());
}

}  // namespace jsw::sample
