#include "tests/faults/FailureTable.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace jsw::test {

namespace {

constexpr Failure kNull{0, ERROR_NOT_ENOUGH_MEMORY};    // no object, FALSE, no characters
constexpr Failure kMinusOne{~std::uint64_t{0}};         // INVALID_HANDLE_VALUE, WAIT_FAILED, -1
constexpr Failure kErrorCode{ERROR_NOT_ENOUGH_MEMORY};  // what the registry answers
constexpr Failure kNotGivenBack{0, ERROR_INVALID_HANDLE, true};
constexpr Failure kKeyNotClosed{ERROR_INVALID_HANDLE, ERROR_INVALID_HANDLE, true};
constexpr Failure kNoFolder{0x80004005};             // E_FAIL
constexpr Failure kNoProgram{ERROR_FILE_NOT_FOUND};  // of the older shell call

struct Family {
    std::optional<Failure> failure;
    std::string functions;  // separated by blanks
};

const Family kFamilies[] = {
    {kNull,
     "AddAccessAllowedAceEx AddVectoredExceptionHandler AllocateAndInitializeSid CreateEventA "
     "CreateMutexA CreateProcessAsUserA CreateSemaphoreA CryptAcquireContextA CryptGenRandom "
     "DeleteFileA DuplicateHandle DuplicateTokenEx EnumPrintersA ExpandEnvironmentStringsA "
     "FormatMessageA GetComputerNameA GetFileSizeEx GetFileVersionInfoA GetFileVersionInfoSizeA "
     "GetFullPathNameA GetHandleInformation GetModuleFileNameA GetModuleHandleA "
     "GetModuleHandleExA GetModuleHandleExW GetModuleHandleW GetPrinterDriverDirectoryA "
     "GetPrivateProfileSectionNamesA GetPrivateProfileStringA GetProcAddress "
     "GetProcessAffinityMask GetSecurityDescriptorDacl GetSystemDirectoryA GetThreadContext "
     "GetVersionExA GetWindowsDirectoryA InitializeAcl InitializeSecurityDescriptor IsValidSid "
     "LoadLibraryA LoadLibraryW MultiByteToWideChar OpenPrinterA OpenProcess OpenThread "
     "PathAppendA PeekMessageA SetEndOfFile ReleaseSemaphore ResetEvent SetEvent "
     "SetKernelObjectSecurity "
     "SetProcessAffinityMask SetSecurityDescriptorDacl SetThreadContext SetThreadPriority "
     "ShellExecuteExA TryEnterCriticalSection VerQueryValueA "
     "VirtualProtect VirtualQuery WideCharToMultiByte WriteFile _beginthreadex _localtime64 "
     "_strdup calloc malloc realloc GetExitCodeThread QueueUserAPC"},
    {kMinusOne,
     "CreateFileA GetFileAttributesA GetFileSize ResumeThread SetFilePointer SuspendThread "
     "TlsAlloc "
     "WaitForMultipleObjects WaitForMultipleObjectsEx WaitForSingleObject WaitForSingleObjectEx "
     "MsgWaitForMultipleObjects MsgWaitForMultipleObjectsEx _access _mktime64 _open _read _time64 "
     "_write fputc fputs signal"},
    {kErrorCode,
     "GetPrinterDataA RegCreateKeyExA RegDeleteKeyA RegDeleteValueA RegEnumKeyExA RegEnumValueA "
     "RegGetValueA RegOpenKeyA RegOpenKeyExA RegQueryValueExA RegSetValueExA SetSecurityInfo"},
    {kNotGivenBack,
     "CloseHandle ClosePrinter CryptReleaseContext FreeLibrary FreeSid LocalFree ReleaseMutex "
     "RemoveVectoredExceptionHandler TlsFree _close"},
    {kKeyNotClosed, "RegCloseKey"},
    {kNoFolder, "SHGetFolderPathA"},
    {kNoProgram, "ShellExecuteA"},
    // What cannot fail, or only by not coming back.
    {std::nullopt,
     "DeleteCriticalSection EnterCriticalSection GetCurrentProcess GetCurrentProcessId "
     "GetCurrentThread GetCurrentThreadId GetLastError GetLengthSid GetLocalTime "
     "GetSystemDefaultLangID GetSystemTimeAsFileTime GetThreadPriority GetTickCount GetTickCount64 "
     "GetUserDefaultLangID InitializeCriticalSection IsDBCSLeadByteEx IsDebuggerPresent "
     "LeaveCriticalSection OutputDebugStringA SetLastError Sleep SleepEx SwitchToThread "
     "___lc_codepage_func ___mb_cur_max_func __iob_func __acrt_iob_func _difftime64 _errno "
     "_initterm _lock _ultoa _unlock _vsnprintf fprintf free fwrite isspace localeconv memchr "
     "memcmp memcpy memmove memset printf strchr strcmp strerror strlen strncmp strtol strtoll "
     "strtoul tolower toupper vfprintf wcslen islower isupper strtod TlsGetValue TlsSetValue"},
    // What writes the counts in a build that counts its lines.
    {std::nullopt, "_fdopen _getpid _locking _mkdir atoi fclose fopen fread fseek getenv strcat"},
    // The program's own end, and the machinery of exceptions.
    {std::nullopt,
     "RaiseException RtlAddFunctionTable RtlCaptureContext RtlDeleteFunctionTable "
     "RtlLookupFunctionEntry RtlUnwind RtlUnwindEx RtlVirtualUnwind __C_specific_handler "
     "_amsg_exit _endthreadex _exit _setjmp abort exit longjmp SetUnhandledExceptionFilter "
     "UnhandledExceptionFilter TerminateProcess atexit _onexit __dllonexit"},
};

std::map<std::string, std::optional<Failure>> makeTable() {
    std::map<std::string, std::optional<Failure>> table;
    for (const Family& family : kFamilies) {
        std::size_t begin = 0;
        while (begin < family.functions.size()) {
            const std::size_t end =
                std::min(family.functions.find(' ', begin), family.functions.size());
            table[family.functions.substr(begin, end - begin)] = family.failure;
            begin = end + 1;
        }
    }
    return table;
}

}  // namespace

std::optional<Failure> failureOf(const std::string& function) {
    static const auto table = makeTable();
    const auto entry = table.find(function);
    if (entry == table.end()) throw std::invalid_argument("how does it fail? " + function);
    return entry->second;
}

}  // namespace jsw::test
