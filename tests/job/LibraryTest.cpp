// What jsw.dll shows to the outside, read from its own file.

#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "tests/support/ImportTable.h"
#include <jsw/version.h>

#include <windows.h>

#include <gmock/gmock.h>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace jsw {

using ::testing::Contains;
using ::testing::UnorderedElementsAre;

namespace {

/// What jsw.dll may import: all of it is in Windows 6.0, the oldest that is served. Look the oldest
/// version up in a function's documentation before adding it. What is newer is looked up by name.
constexpr struct {
    const char* library;
    const char* functions;
} kInWindows6[] = {
    {"advapi32.dll",
     "AddAccessAllowedAceEx AllocateAndInitializeSid CreateProcessAsUserA "
     "CryptAcquireContextA CryptGenRandom CryptReleaseContext DuplicateTokenEx FreeSid "
     "GetLengthSid GetSecurityDescriptorDacl InitializeAcl InitializeSecurityDescriptor "
     "IsValidSid RegCloseKey RegCreateKeyExA RegDeleteKeyA RegDeleteValueA RegEnumKeyExA "
     "RegEnumValueA RegGetValueA RegOpenKeyA RegOpenKeyExA RegQueryValueExA RegSetValueExA "
     "SetKernelObjectSecurity SetSecurityDescriptorDacl SetSecurityInfo"},
    {"kernel32.dll",
     "AddVectoredExceptionHandler CloseHandle CreateEventA CreateFileA CreateMutexA "
     "CreateSemaphoreA DeleteCriticalSection DeleteFileA DisableThreadLibraryCalls "
     "DuplicateHandle EnterCriticalSection ExpandEnvironmentStringsA FormatMessageA "
     "FreeLibrary GetComputerNameA GetCurrentProcess GetCurrentProcessId "
     "GetCurrentThread GetCurrentThreadId GetFileAttributesA GetFileSize GetFileSizeEx "
     "GetFullPathNameA GetHandleInformation GetLastError GetLocalTime GetModuleFileNameA "
     "GetModuleHandleA GetModuleHandleExA GetModuleHandleW "
     "GetPrivateProfileSectionNamesA GetPrivateProfileStringA GetProcAddress "
     "GetProcessAffinityMask GetSystemDefaultLangID GetSystemDirectoryA "
     "GetSystemTimeAsFileTime GetThreadContext GetThreadPriority GetTickCount "
     "GetTickCount64 GetUserDefaultLangID GetVersionExA GetWindowsDirectoryA "
     "InitializeCriticalSection IsDBCSLeadByteEx IsDebuggerPresent LeaveCriticalSection "
     "LoadLibraryA LoadLibraryW LocalFree MultiByteToWideChar OpenProcess "
     "OutputDebugStringA RaiseException ReleaseMutex ReleaseSemaphore "
     "RemoveVectoredExceptionHandler ResetEvent ResumeThread RtlCaptureContext "
     "RtlLookupFunctionEntry RtlPcToFileHeader RtlUnwindEx RtlVirtualUnwind SetEndOfFile "
     "SetErrorMode "
     "SetEvent SetFilePointer SetLastError SetProcessAffinityMask SetThreadContext "
     "SetThreadPriority Sleep SuspendThread TlsAlloc TlsGetValue TlsSetValue "
     "TryEnterCriticalSection VirtualProtect VirtualQuery WaitForMultipleObjects "
     "WaitForSingleObject WideCharToMultiByte WriteFile __C_specific_handler"},
    {"shell32.dll", "SHGetFolderPathA ShellExecuteA ShellExecuteExA"},
    {"shlwapi.dll", "PathAppendA"},
    {"user32.dll", "MsgWaitForMultipleObjectsEx PeekMessageA"},
    {"version.dll", "GetFileVersionInfoA GetFileVersionInfoSizeA VerQueryValueA"},
    {"winspool.drv",
     "ClosePrinter EnumPrintersA GetPrinterDataA GetPrinterDriverDirectoryA OpenPrinterA"},
};

/// "library!function" of all of them.
std::set<std::string> functionsOfWindows6() {
    std::set<std::string> functions;
    for (const auto& [library, names] : kInWindows6) {
        std::istringstream words(names);
        for (std::string name; words >> name;) functions.insert(concat(library, "!", name));
    }
    return functions;
}

}  // namespace

class LibraryTest : public ::testing::Test {
  protected:
    template <class Record>
    const Record* at(DWORD offset) const {
        return reinterpret_cast<const Record*>(reinterpret_cast<const char*>(library_.get()) +
                                               offset);
    }

    template <class Directory>
    const Directory* directory(unsigned index) const {
        const auto* dos = at<IMAGE_DOS_HEADER>(0);
        const auto* nt = at<IMAGE_NT_HEADERS64>(static_cast<DWORD>(dos->e_lfanew));
        return at<Directory>(nt->OptionalHeader.DataDirectory[index].VirtualAddress);
    }

    const ModuleHandle library_{LoadLibraryA("jsw.dll")};
};

TEST_F(LibraryTest, ExportsItsEightFunctionsAndNothingElse) {
    const auto* exports = directory<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT);
    std::vector<std::string> names;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) {
        names.emplace_back(at<char>(at<DWORD>(exports->AddressOfNames)[i]));
    }
    EXPECT_THAT(names, UnorderedElementsAre("JSWInit", "JSWTerminate", "JSWUpdateInfo",
                                            "JSWDisplayPrompt", "JSWPostDlgMsg", "JSWFilterDllMsg",
                                            "JSWGetAPIVersion", "JSWGetWindowHwnd"));
}

TEST_F(LibraryTest, NeedsNothingButWindows6) {
    const auto present = functionsOfWindows6();
    const test::ImportTable imports(library_.get());
    for (const auto& import : imports.functions()) {
        const std::string library = toLower(import.library);
        if (library == "msvcrt.dll") continue;  // the same in all versions from 6.0 on
        EXPECT_THAT(present, Contains(concat(library, "!", import.name)));
    }
}

TEST_F(LibraryTest, CarriesTheVersionOfItsHeader) {
    std::vector<char> info(GetFileVersionInfoSizeA("jsw.dll", nullptr));
    ASSERT_NE(GetFileVersionInfoA("jsw.dll", 0, static_cast<DWORD>(info.size()), info.data()),
              FALSE);
    void* value = nullptr;
    UINT size = 0;
    ASSERT_NE(VerQueryValueA(info.data(), "\\", &value, &size), FALSE);
    const auto* numbers = static_cast<const VS_FIXEDFILEINFO*>(value);
    EXPECT_EQ(concat(JSW_VERSION_MAJOR, ".", JSW_VERSION_MINOR, ".", JSW_VERSION_PATCH),
              JSW_VERSION_STRING);
    EXPECT_EQ(numbers->dwFileVersionMS,
              static_cast<DWORD>(MAKELONG(JSW_VERSION_MINOR, JSW_VERSION_MAJOR)));
    EXPECT_EQ(numbers->dwFileVersionLS, static_cast<DWORD>(MAKELONG(0, JSW_VERSION_PATCH)));
    ASSERT_NE(VerQueryValueA(info.data(), "\\StringFileInfo\\040904E4\\FileVersion", &value, &size),
              FALSE);
    EXPECT_STREQ(static_cast<const char*>(value), JSW_VERSION_STRING);
}

}  // namespace jsw
