#include "tests/faults/FailureTable.h"

#include "tests/support/Words.h"

#include <map>
#include <stdexcept>

namespace jsw::test {

namespace {

constexpr Failure kNull{0, ERROR_NOT_ENOUGH_MEMORY};    // null, FALSE, 0 characters
constexpr Failure kMinusOne{~std::uint64_t{0}};         // INVALID_HANDLE_VALUE, WAIT_FAILED, -1
constexpr Failure kErrorCode{ERROR_NOT_ENOUGH_MEMORY};  // the registry's error
constexpr Failure kNotGivenBack{0, ERROR_INVALID_HANDLE, true};
constexpr Failure kKeyNotClosed{ERROR_INVALID_HANDLE, ERROR_INVALID_HANDLE, true};
constexpr Failure kNoFolder{0x80004005};             // E_FAIL
constexpr Failure kNoProgram{ERROR_FILE_NOT_FOUND};  // of the older shell call

struct Family {
    std::optional<Failure> failure;
    const char *library, *functions;
};

const Family kFamilies[] = {
    {kNull, "advapi32.dll",
     "AddAccessAllowedAceEx AllocateAndInitializeSid CreateProcessAsUserA CryptAcquireContextA "
     "CryptGenRandom DuplicateTokenEx GetSecurityDescriptorDacl InitializeAcl "
     "InitializeSecurityDescriptor IsValidSid SetKernelObjectSecurity SetSecurityDescriptorDacl"},
    {kNull, "kernel32.dll",
     "AddVectoredExceptionHandler CreateEventA CreateMutexA CreateSemaphoreA DeleteFileA "
     "DuplicateHandle ExpandEnvironmentStringsA FormatMessageA GetComputerNameA GetFileSizeEx "
     "GetFullPathNameA GetHandleInformation GetModuleFileNameA GetModuleHandleA "
     "GetModuleHandleExA GetModuleHandleExW GetModuleHandleW GetPrivateProfileSectionNamesA "
     "GetPrivateProfileStringA GetProcAddress GetProcessAffinityMask GetSystemDirectoryA "
     "GetThreadContext GetVersionExA GetWindowsDirectoryA LoadLibraryA LoadLibraryW "
     "MultiByteToWideChar OpenProcess OpenThread SetEndOfFile ReleaseSemaphore ResetEvent "
     "SetEvent SetProcessAffinityMask SetThreadContext SetThreadPriority "
     "TryEnterCriticalSection VirtualProtect VirtualQuery WideCharToMultiByte WriteFile "
     "GetExitCodeThread QueueUserAPC"},
    {kNull, "winspool.drv", "EnumPrintersA GetPrinterDriverDirectoryA OpenPrinterA"},
    {kNull, "version.dll", "GetFileVersionInfoA GetFileVersionInfoSizeA VerQueryValueA"},
    {kNull, "shlwapi.dll", "PathAppendA"},
    {kNull, "user32.dll", "PeekMessageA"},
    {kNull, "shell32.dll", "ShellExecuteExA"},
    {kNull, "msvcrt.dll", "_beginthreadex _localtime64 _strdup calloc malloc realloc"},
    {kMinusOne, "kernel32.dll",
     "CreateFileA GetFileAttributesA GetFileSize ResumeThread SetFilePointer SuspendThread "
     "TlsAlloc WaitForMultipleObjects WaitForMultipleObjectsEx WaitForSingleObject "
     "WaitForSingleObjectEx"},
    {kMinusOne, "user32.dll", "MsgWaitForMultipleObjects MsgWaitForMultipleObjectsEx"},
    {kMinusOne, "msvcrt.dll", "_access _mktime64 _open _read _time64 _write fputc fputs signal"},
    {kErrorCode, "winspool.drv", "GetPrinterDataA"},
    {kErrorCode, "advapi32.dll",
     "RegCreateKeyExA RegDeleteKeyA RegDeleteValueA RegEnumKeyExA RegEnumValueA RegGetValueA "
     "RegOpenKeyA RegOpenKeyExA RegQueryValueExA RegSetValueExA SetSecurityInfo"},
    {kNotGivenBack, "kernel32.dll",
     "CloseHandle FreeLibrary LocalFree ReleaseMutex RemoveVectoredExceptionHandler TlsFree"},
    {kNotGivenBack, "winspool.drv", "ClosePrinter"},
    {kNotGivenBack, "advapi32.dll", "CryptReleaseContext FreeSid"},
    {kNotGivenBack, "msvcrt.dll", "_close"},
    {kKeyNotClosed, "advapi32.dll", "RegCloseKey"},
    {kNoFolder, "shell32.dll", "SHGetFolderPathA"},
    {kNoProgram, "shell32.dll", "ShellExecuteA"},
    // Functions that cannot fail, or can only block.
    {std::nullopt, "kernel32.dll",
     "DeleteCriticalSection EnterCriticalSection GetCurrentProcess GetCurrentProcessId "
     "GetCurrentThread GetCurrentThreadId GetLastError GetLocalTime GetSystemDefaultLangID "
     "GetSystemTimeAsFileTime GetThreadPriority GetTickCount GetTickCount64 GetUserDefaultLangID "
     "InitializeCriticalSection IsDBCSLeadByteEx IsDebuggerPresent LeaveCriticalSection "
     "OutputDebugStringA SetLastError Sleep SleepEx SwitchToThread TlsGetValue TlsSetValue"},
    {std::nullopt, "advapi32.dll", "GetLengthSid"},
    {std::nullopt, "msvcrt.dll",
     "___lc_codepage_func ___mb_cur_max_func __iob_func __acrt_iob_func _difftime64 _errno "
     "_initterm _lock _ultoa _unlock _vsnprintf fprintf free fwrite isspace localeconv memchr "
     "memcmp memcpy memmove memset printf sprintf strchr strcmp strerror strlen strncmp strtol "
     "strstr strtoll strtoul tolower toupper vfprintf wcslen islower isupper strtod"},
    // Writers of the counts in a coverage build.
    {std::nullopt, "msvcrt.dll",
     "_fdopen _getpid _locking _mkdir atoi fclose fopen fread fseek getenv strcat"},
    // The program's end, and exception handling.
    {std::nullopt, "kernel32.dll",
     "RaiseException RtlAddFunctionTable RtlCaptureContext RtlDeleteFunctionTable "
     "RtlLookupFunctionEntry RtlUnwind RtlUnwindEx RtlVirtualUnwind __C_specific_handler "
     "SetUnhandledExceptionFilter UnhandledExceptionFilter TerminateProcess"},
    {std::nullopt, "msvcrt.dll",
     "_amsg_exit _assert _endthreadex _exit _setjmp abort exit longjmp atexit _onexit "
     "__dllonexit"},
};

std::map<std::string, SystemFunction> makeTable() {
    std::map<std::string, SystemFunction> table;
    for (const Family& family : kFamilies) {
        for (const std::string& function : words(family.functions)) {
            table[function] = {family.library, family.failure};
        }
    }
    return table;
}

}  // namespace

const SystemFunction& systemFunction(const std::string& name) {
    static const auto table = makeTable();
    const auto entry = table.find(name);
    if (entry == table.end()) throw std::invalid_argument("how does it fail? " + name);
    return entry->second;
}

}  // namespace jsw::test
