#include "tools/qldemo/JswLibrary.h"

#include <stdexcept>

namespace jsw::qldemo {

JswLibrary::JswLibrary(const std::string& path) : module_(LoadLibraryA(path.c_str())) {
    if (!module_) {
        throw std::runtime_error(path + " cannot be loaded, error " +
                                 std::to_string(GetLastError()));
    }
    find(init, "JSWInit");
    find(terminate, "JSWTerminate");
    find(updateInfo, "JSWUpdateInfo");
    find(displayPrompt, "JSWDisplayPrompt");
    find(postDlgMsg, "JSWPostDlgMsg");
}

template <class Function>
void JswLibrary::find(Function*& function, const char* name) {
    const FARPROC address = GetProcAddress(module_.get(), name);
    if (address == nullptr) throw std::runtime_error(std::string("jsw.dll has no ") + name);
    function = reinterpret_cast<Function*>(reinterpret_cast<void*>(address));
}

}  // namespace jsw::qldemo
