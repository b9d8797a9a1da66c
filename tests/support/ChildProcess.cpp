#include "tests/support/ChildProcess.h"

#include "PublicLib/win/SystemFolders.h"

#include <windows.h>

#include <cstdlib>
#include <map>
#include <stdexcept>

namespace jsw::test {

namespace {

constexpr char kRoleVariable[] = "JSW_TEST_ROLE";
constexpr char kArgumentVariable[] = "JSW_TEST_ARGUMENT";

std::map<std::string, std::function<int(const std::string&)>>& roles() {
    static std::map<std::string, std::function<int(const std::string&)>> table;
    return table;
}

}  // namespace

ChildProcess::ChildProcess(const std::string& role, const std::string& argument,
                           const std::string& program) {
    SetEnvironmentVariableA(kRoleVariable, role.c_str());
    SetEnvironmentVariableA(kArgumentVariable, argument.c_str());
    std::string command = "\"" + (program.empty() ? moduleFileName(nullptr) : program) + "\"";
    STARTUPINFOA startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION info{};
    const BOOL started = CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0,
                                        nullptr, nullptr, &startup, &info);
    SetEnvironmentVariableA(kRoleVariable, nullptr);
    SetEnvironmentVariableA(kArgumentVariable, nullptr);
    if (started == FALSE) throw std::runtime_error("cannot start a child process");
    process_.reset(info.hProcess);
    const KernelHandle thread(info.hThread);
}

std::uint32_t ChildProcess::wait(std::uint32_t timeoutMilliseconds) {
    WaitForSingleObject(process_.get(), timeoutMilliseconds);
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process_.get(), &code);
    return code;
}

void ChildProcess::kill() {
    TerminateProcess(process_.get(), 1);
    WaitForSingleObject(process_.get(), INFINITE);
}

ChildRole::ChildRole(const std::string& name, std::function<int(const std::string&)> run) {
    roles()[name] = std::move(run);
}

void ChildRole::runIfAsked() {
    const char* role = std::getenv(kRoleVariable);
    if (role == nullptr) return;
    const auto entry = roles().find(role);
    const char* argument = std::getenv(kArgumentVariable);
    std::exit(entry == roles().end() ? 99 : entry->second(argument != nullptr ? argument : ""));
}

}  // namespace jsw::test
