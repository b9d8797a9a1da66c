#pragma once

#include "jsw/settings/Settings.h"
#include "tests/printer/ClientScript.h"
#include "tests/support/HeldUpThread.h"
#include "tests/support/HostTest.h"

#include <windows.h>

#include <cstdio>
#include <functional>

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

    /// Lets two threads work, by default the same; the second one starts during a call of the first
    /// and must meet a lock.
    void meetIn(const char* call, const std::function<void()>& work,
                const std::function<void()>& workOfOther = nullptr) {
        static const char* place;
        static HeldUpThread* second;
        HeldUpThread other(workOfOther ? workOfOther : work);
        place = call;
        second = &other;
        script_.onShared = [](const std::string& name) {
            EXPECT_TRUE(name != place || second->meetsALock()) << name;
        };
        work();
        other.join();
        script_.onShared = nullptr;
    }

    static bool isLoaded(const char* dllName) { return GetModuleHandleA(dllName) != nullptr; }

    ClientScript script_;
};

}  // namespace jsw::test
