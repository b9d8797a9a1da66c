#pragma once

#include <windows.h>

#include <winspool.h>

#include <utility>

namespace jsw {

/// Owns one Windows resource and closes it at the end of its scope. Null and INVALID_HANDLE_VALUE
/// both count as empty. Closing preserves GetLastError(), so a failed call's error can still be
/// read afterwards.
template <class Handle, auto* close>
class UniqueHandle {
  public:
    UniqueHandle() = default;
    explicit UniqueHandle(Handle handle) : handle_(handle) {}
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        reset(other.release());
        return *this;
    }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    ~UniqueHandle() { reset(); }

    Handle get() const { return handle_; }
    explicit operator bool() const { return isValid(handle_); }

    /// Gives up ownership.
    [[nodiscard]] Handle release() { return std::exchange(handle_, Handle{}); }

    void reset(Handle handle = Handle{}) {
        const Handle old = std::exchange(handle_, handle);
        if (!isValid(old)) return;
        const DWORD lastError = GetLastError();
        close(old);
        SetLastError(lastError);
    }

    /// For Windows functions that return a handle by pointer; closes the present one first.
    Handle* put() {
        reset();
        return &handle_;
    }

  private:
    static bool isValid(Handle handle) {
        return handle != Handle{} &&
               reinterpret_cast<HANDLE>(handle) != INVALID_HANDLE_VALUE;  // NOLINT
    }

    Handle handle_{};
};

using KernelHandle = UniqueHandle<HANDLE, CloseHandle>;  // file, mutex, process, …
using KeyHandle = UniqueHandle<HKEY, RegCloseKey>;
using ModuleHandle = UniqueHandle<HMODULE, FreeLibrary>;
using SidHandle = UniqueHandle<PSID, FreeSid>;
using PrinterHandle = UniqueHandle<HANDLE, ClosePrinter>;

}  // namespace jsw
