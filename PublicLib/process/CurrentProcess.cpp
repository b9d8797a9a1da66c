#include "PublicLib/process/CurrentProcess.h"

#include "PublicLib/errors/ErrorPlaces.h"
#include "PublicLib/locks/Singleton.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"

namespace jsw {

std::shared_ptr<const CurrentProcess> CurrentProcess::instance() {
    MethodTrace trace(component::kJsw, "CurrentProcess::instance: ");
    return singleton<const CurrentProcess>->instance([&] {
        trace.add("instantiating CurrentProcess.");
        return std::make_shared<const CurrentProcess>();
    });
}

void CurrentProcess::destroy() {
    MethodTrace trace(component::kJsw, "CurrentProcess::destroy: ");
    singleton<const CurrentProcess>->destroy([&] { trace.add("destroying CurrentProcess."); });
}

CurrentProcess::CurrentProcess() : path_(moduleFileName(nullptr)) {
    if (path_.empty()) raiseLastError("CurrentProcess::CurrentProcess", place::kCurrentProcess);
}

std::string CurrentProcess::folder() const {
    return std::string(folderPart(path_));
}

}  // namespace jsw
