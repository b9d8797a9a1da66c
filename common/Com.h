#pragma once

#include <windows.h>

#include <objbase.h>

#include <oleauto.h>
#include <string_view>
#include <utility>

namespace jsw::common {

/**
 * Initialises COM on the calling thread for a scope. A thread that is already initialised in
 * another mode (RPC_E_CHANGED_MODE) is used unchanged.
 */
class ComScope {
  public:
    ComScope() : result_(CoInitializeEx(nullptr, COINIT_MULTITHREADED)) {}
    ~ComScope() {
        if (SUCCEEDED(result_)) CoUninitialize();
    }
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

    [[nodiscard]] bool ready() const { return SUCCEEDED(result_) || result_ == RPC_E_CHANGED_MODE; }

  private:
    HRESULT result_;
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

}  // namespace jsw::common
