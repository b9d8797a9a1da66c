#pragma once

#include <jsw/jsw.h>

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>

namespace jsw::qldemo {

/** jsw.dll, loaded at run time as by a driver; freed with the object. */
class JswLibrary {
  public:
    /** @throws std::runtime_error if the file or one of its functions is missing */
    explicit JswLibrary(const std::string& path);

    /* The functions of jsw/jsw.h that the demo calls. */
    decltype(JSWInit)* init = nullptr;
    decltype(JSWTerminate)* terminate = nullptr;
    decltype(JSWUpdateInfo)* updateInfo = nullptr;
    decltype(JSWDisplayPrompt)* displayPrompt = nullptr;
    decltype(JSWPostDlgMsg)* postDlgMsg = nullptr;

  private:
    struct Freer {
        void operator()(HMODULE module) const { FreeLibrary(module); }
    };

    template <class Function>
    void find(Function*& function, const char* name);

    std::unique_ptr<std::remove_pointer_t<HMODULE>, Freer> module_;
};

}  // namespace jsw::qldemo
