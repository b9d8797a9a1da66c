#pragma once

#include "jsw/settings/Settings.h"
#include "tests/printer/ClientScript.h"
#include "tests/support/HostTest.h"

#include <windows.h>

#include <cstdio>

namespace jsw::test {

/// A test with the scripted device client.
class ClientTest : public HostTest {
  protected:
    static constexpr char kClient[] = "qlscriptedclient.dll";

    void SetUp() override {
        HostTest::SetUp();
        char address[32];
        std::snprintf(address, sizeof address, "%p", static_cast<void*>(&script_));
        SetEnvironmentVariableA(kScriptVariable, address);
        useClient(kClient);
    }

    static void useClient(const std::string& dllName) {
        Settings().write(setting::kPcsClient, dllName);
    }

    static bool isLoaded(const char* dllName) { return GetModuleHandleA(dllName) != nullptr; }

    ClientScript script_;
};

}  // namespace jsw::test
