#pragma once

#include <windows.h>

#include <objbase.h>

#include <oleauto.h>
#include <string_view>
#include <utility>

namespace jsw::sample {

/**
 * Initialises COM on the calling thread for a scope. A thread that is already initialised in
 * another mode (RPC_E_CHANGED_MODE) is used unchanged.
 */
class ComScope {
  public:
    ComScope() : result_(CoInitializeEx(nullptr, COINIT_MULTITHREADED)) {}
    ~ComScope() {
        if (SUCCEEDED(result_)) {
            CoUninitialize();
        }
    }
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

    [[nodiscard]] bool ready() const { return SUCCEEDED(result_) || result_ == RPC_E_CHANGED_MODE; }

  private:
    HRESULT result_;
};

/** Owns one reference to a COM object. */
template <class Interface>
class ComPtr {
  public:
    ComPtr() = default;
    ~ComPtr() { reset(); }
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ComPtr& operator=(ComPtr&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    void reset() {
        if (object_ != nullptr) {
            std::exchange(object_, nullptr)->Release();
        }
    }
    /** For functions that return an object by pointer; releases the present one first. */
    [[nodiscard]] Interface** out() {
        reset();
        return &object_;
    }
    [[nodiscard]] void** outVoid() { return reinterpret_cast<void**>(out()); }
    [[nodiscard]] Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

  private:
    Interface* object_ = nullptr;
};

/** Owns one COM string. */
class ComString {
  public:
    ComString() = default;
    explicit ComString(const wchar_t* text) : text_(SysAllocString(text)) {}
    ~ComString() { SysFreeString(text_); }
    ComString(const ComString&) = delete;
    ComString& operator=(const ComString&) = delete;

    [[nodiscard]] BSTR* out() {
        SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }
    [[nodiscard]] BSTR get() const { return text_; }
    [[nodiscard]] std::wstring_view view() const {
        return text_ == nullptr ? std::wstring_view()
                                : std::wstring_view(text_, SysStringLen(text_));
    }

  private:
    BSTR text_ = nullptr;
};

}  // namespace jsw::sample
