#include "PublicLib/calls/ForeignCall.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/win/EntryPoint.h"
#include "PublicLib/win/LoadLibrary.h"
#include "jsw/updates/AppUpdatesController.h"

#include <windows.h>

#include <shellapi.h>

#include <exception>

namespace jsw {

namespace {

using QueryUserToken = BOOL WINAPI(ULONG sessionId, HANDLE* token);

constexpr std::size_t kLongestPath = 260;  // characters

bool queryUserToken(KernelHandle& token) {
    const ModuleHandle terminalServices = loadSystemLibrary("wtsapi32.dll");
    if (!terminalServices) return false;
    auto* query = findEntryPoint<QueryUserToken>(terminalServices.get(), "WTSQueryUserToken");
    return query != nullptr && query(activeConsoleSession(), token.put()) != FALSE;
}

/// Starts the program as the token's user and does not wait for it. On failure FALSE, with
/// GetLastError() set.
BOOL startAsUser(HANDLE token, const std::string& path, void* environment) {
    // A longer path is refused, not cut: the rest may name another program.
    if (path.size() > kLongestPath) {
        SetLastError(ERROR_FILENAME_EXCED_RANGE);
        return FALSE;
    }
    // In quotes: for C:\up dates\upd.exe without quotes, Windows would start C:\up.exe. A quote
    // inside the path would end them; no valid path has one.
    if (path.find('"') != std::string::npos) {
        SetLastError(ERROR_INVALID_NAME);
        return FALSE;
    }
    std::string commandLine = "\"" + path + "\"";
    constexpr DWORD kFlags =
        CREATE_NEW_CONSOLE | NORMAL_PRIORITY_CLASS | CREATE_UNICODE_ENVIRONMENT;
    STARTUPINFOA startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION info{};
    CallEnd end{};
    const BOOL started = callForeign(
        component::kUpdater, "CreateProcessAsUserA",
        [&] {
            return CreateProcessAsUserA(token, nullptr, commandLine.data(), nullptr, nullptr, FALSE,
                                        kFlags, environment, nullptr, &startup, &info);
        },
        end);
    if (started == FALSE) return FALSE;
    const KernelHandle process(info.hProcess);
    const KernelHandle thread(info.hThread);
    return started;
}

}  // namespace

void AppUpdatesController::checkForUpdatesVista(const std::string& updaterPath) {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::checkForUpdatesVista: ");
    constexpr INT_PTR kHighestError = 32;
    CallEnd end{};
    const auto result = reinterpret_cast<INT_PTR>(callForeign(
        component::kUpdater, "ShellExecuteA",
        [&] {
            return ShellExecuteA(nullptr, "RunAs", updaterPath.c_str(), "-UAC", nullptr,
                                 SW_SHOWNORMAL);
        },
        end));
    // A failure is no news: there may be no updater, and the user may refuse the elevation.
    if (result > kHighestError) trace.add("Updater launched successfully.");
}

void AppUpdatesController::checkForUpdatesXp(const std::string& updaterPath) {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::checkForUpdatesXp: ");
    KernelHandle token;
    {
        KernelHandle sessionToken;
        DWORD error = ERROR_SUCCESS;
        if (!getSessionUserToken(&sessionToken, &error)) return;
        if (DuplicateTokenEx(sessionToken.get(), MAXIMUM_ALLOWED, nullptr, SecurityIdentification,
                             TokenPrimary, token.put()) == FALSE) {
            trace.add("API DuplicateTokenEx failed, lastErr=", GetLastError(), ".");
            return;
        }
    }
    UserEnvironment environment;
    createEnvironment(environment, token.get());
    trace.add("Launching=", updaterPath, ".");
    const BOOL started = startAsUser(token.get(), updaterPath, environment.block());
    if (started != FALSE) {
        trace.add("API CreateProcessAsUser success, retCode=", started, ".");
    } else {
        trace.add("API CreateProcessAsUser failed, lastErr=", GetLastError(), ".");
    }
}

bool AppUpdatesController::getSessionUserToken(KernelHandle* token, DWORD* error) {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::getSessionUserToken: ");
    const bool given = token != nullptr && error != nullptr;
    const bool found = given && queryUserToken(*token);
    if (given && !found) {
        *error = GetLastError();
        trace.add("API WTSQueryUserToken failed, lastErr=", *error, ".");
    }
    trace.setResult(concat(found));
    return found;
}

bool AppUpdatesController::createEnvironment(UserEnvironment& environment, HANDLE token) {
    MethodTrace trace(component::kUpdater, "AppUpdatesController::createEnvironment: ");
    try {
        const std::string failure = environment.create(token);
        if (!failure.empty()) trace.add(failure);
        return failure.empty();
    } catch (const std::exception&) {  // no memory
        trace.add("Exception lastErr=", GetLastError());
        return false;
    }
}

}  // namespace jsw
