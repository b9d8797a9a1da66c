#include "tools/jswctl/RotateLog.h"

#include "PublicLib/locks/InterProcessLock.h"
#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/logging/LogFile.h"
#include "tools/jswctl/ExitCode.h"
#include "tools/jswctl/Host.h"

#include <windows.h>

#include <cstdio>
#include <stdexcept>

namespace jsw::ctl {

int rotateLog(const std::string& host) {
    nameHost(host);
    const std::string log = BasicLogger::filePath();
    const std::string old = log.substr(0, log.rfind('.')) + ".old.log";
    InterProcessLock lock(logLockName(log));
    const InterProcessLock::Hold hold(lock);
    if (MoveFileExA(log.c_str(), old.c_str(), MOVEFILE_REPLACE_EXISTING) != FALSE) {
        std::printf("Renamed %s to %s.\n", log.c_str(), old.c_str());
        return kWell;
    }
    const DWORD error = GetLastError();
    if (error != ERROR_FILE_NOT_FOUND) {
        throw std::runtime_error("cannot rename " + log + ": " + errorText(error));
    }
    std::printf("There is no %s.\n", log.c_str());
    return kWell;
}

}  // namespace jsw::ctl
