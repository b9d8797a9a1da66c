#include "PublicLib/logging/LogFile.h"

#include "PublicLib/win/Paths.h"

#include <array>

namespace jsw {

namespace {

std::string windowsDriveRoot() {
    std::array<char, MAX_PATH + 1> folder{};
    const UINT length = GetWindowsDirectoryA(folder.data(), static_cast<UINT>(folder.size()));
    if (length == 0 || length > MAX_PATH) return "c:\\";
    return std::string(folder.data(), length).substr(0, 3);
}

bool moveTo(HANDLE file, LARGE_INTEGER position) {
    const DWORD low =
        SetFilePointer(file, static_cast<LONG>(position.LowPart), &position.HighPart, FILE_BEGIN);
    return low != INVALID_SET_FILE_POINTER || GetLastError() == NO_ERROR;
}

std::string fullPath(const std::string& path) {
    return path.find('\\') == std::string::npos ? windowsDriveRoot() + path : path;
}

}  // namespace

std::string logLockName(const std::string& path) {
    return "QNLOG_" + std::string(fileNamePart(path));
}

LogFile::LogFile(const std::string& path) : path_(fullPath(path)), lock_(logLockName(path_)) {
}

KernelHandle LogFile::open(DWORD access, DWORD disposition, SECURITY_ATTRIBUTES* security) const {
    return KernelHandle(CreateFileA(path_.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    security, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

void LogFile::write(const KernelHandle& file, std::string_view line) {
    if (!file) return;
    LARGE_INTEGER end{};
    end.LowPart = GetFileSize(file.get(), reinterpret_cast<DWORD*>(&end.HighPart));
    if (end.LowPart == INVALID_FILE_SIZE && GetLastError() != NO_ERROR) return;
    if (!moveTo(file.get(), end)) return;  // the line would overwrite other lines
    DWORD written = 0;
    const auto size = static_cast<DWORD>(line.size());
    if (WriteFile(file.get(), line.data(), size, &written, nullptr) != FALSE && written == size) {
        return;
    }
    // A full disk: the incomplete line would run into the next one.
    if (moveTo(file.get(), end)) SetEndOfFile(file.get());
}

void LogFile::remove() {
    const InterProcessLock::Hold hold(lock_);
    DeleteFileA(path_.c_str());
}

bool LogFile::isReadable() const {
    return static_cast<bool>(open(GENERIC_READ, OPEN_EXISTING, nullptr));
}

}  // namespace jsw
