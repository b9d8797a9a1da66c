#pragma once

#include "tests/job/Script.h"

#include <windows.h>

#include <cstdint>
#include <string>

namespace jsw::test {

/// The script of the test program that this module was loaded into.
inline Script& script() {
    char address[32] = "0";
    GetEnvironmentVariableA(kScriptVariable, address, sizeof(address));
    return *reinterpret_cast<Script*>(std::stoull(address));
}

}  // namespace jsw::test
