// First jobs of a host program in separate processes.

#include "PublicLib/text/Text.h"
#include "PublicLib/win/SystemFolders.h"
#include "tests/job/JobTest.h"
#include "tests/support/ChildProcess.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace jsw {

namespace {

constexpr char kStore[] = "Software\\QuillonInkjet\\JSW\\Local\\qlfr\\";
constexpr DWORD kPatience = 60000;  // milliseconds

KernelHandle namedEvent(const std::string& name) {
    return KernelHandle(CreateEventA(nullptr, FALSE, FALSE, name.c_str()));
}

/// Runs this number of jobs, each at the test's signal; returns how many had no window.
const test::ChildRole firstJobs("first jobs", [](const std::string& argument) {
    int jobs = 0;
    std::string name;
    std::string registry;
    std::istringstream(argument) >> jobs >> name >> registry;
    test::PrivateRegistry::join(registry);
    test::Script script;
    script.offer();
    const test::Exports api = test::findExports(LoadLibraryA("jsw.dll"));
    const KernelHandle start = namedEvent("start " + name);
    const KernelHandle end = namedEvent("end " + name);
    int windows = 0;
    for (int i = 0; i < jobs; ++i) {
        WaitForSingleObject(start.get(), kPatience);
        script.view.clear();
        api.init("SimulatedPrinter", "report.pdf", 0, 1, 1, 1, 1, nullptr, 0, 0, nullptr);
        api.terminate();
        const auto calls = script.view.calls();
        windows += static_cast<int>(std::count(calls.begin(), calls.end(), "ShowGui()"));
        SetEvent(end.get());
    }
    return jobs - windows;
});

}  // namespace

/// A host without a store, its settings file beside it.
class FirstRunTest : public test::JobTest {
  protected:
    void SetUp() override {
        JobTest::SetUp();
        host_ = folder_.file("qlfrhost.exe");
        std::filesystem::copy_file(moduleFileName(nullptr), host_);
    }

    /// What a job needs is at the end.
    void writeSettingsFile(int otherValues) const {
        std::string text = concat("[", kStore, "Settings\\Updater]\r\nCheckForUpdates=dword:0\r\n",
                                  "[", kStore, "Other]\r\n");
        for (int i = 0; i < otherValues; ++i) text += concat("Value", i, "=dword:1\r\n");
        text += concat("[", kStore, "Settings\\Controller]\r\nView=string:scripted_view.dll\r\n",
                       "Catalog=string:scripted_catalog.dll\r\n",
                       "RulesEngine=string:scripted_rules.dll\r\n", "[", kStore,
                       "Settings]\r\nDataPath=string:C:\\Data\r\nDllPath=string:.\r\n");
        folder_.write("qlfrjsw.loc", text);
    }

    static bool isMarked() {
        std::uint32_t mark = 0;
        const BasicSettings stores("Software\\QuillonInkjet\\JSW\\Local", "");
        return stores.getValue("", "qlfrInstallationPending", mark);
    }
    static std::string stored(const char* key, const char* name) {
        std::string value = "(none)";
        std::uint32_t number = 0;
        const BasicSettings store(kStore, "");
        if (store.getValue(key, name, number)) return std::to_string(number);
        store.getValue(key, name, value);
        return value;
    }

    test::ChildProcess startHost(int jobs, const char* name) const {
        return {"first jobs", concat(jobs, " ", name, " ", registryPath()), host_};
    }

    std::string host_;
};

TEST_F(FirstRunTest, OfTwoProcessesAtTheSameTimeOneInstallsAndBothHaveTheirWindow) {
    constexpr int kRounds = 12;
    writeSettingsFile(50);
    const char* const names[] = {"A", "B"};
    test::ChildProcess hosts[] = {startHost(kRounds, names[0]), startHost(kRounds, names[1])};
    std::vector<KernelHandle> starts;
    std::vector<KernelHandle> ends;
    for (const char* name : names) {
        starts.push_back(namedEvent(concat("start ", name)));
        ends.push_back(namedEvent(concat("end ", name)));
    }
    for (int round = 0; round < kRounds; ++round) {
        for (const auto& start : starts) SetEvent(start.get());
        for (const auto& end : ends) {
            ASSERT_EQ(WaitForSingleObject(end.get(), kPatience), WAIT_OBJECT_0) << round;
        }
        EXPECT_EQ(stored("Settings", "DllPath"), ".") << round;
        EXPECT_EQ(stored("Settings", "DataPath"), "C:\\Data") << round;
        EXPECT_FALSE(isMarked()) << round;
        BasicSettings(kStore, "").deleteKey("");
    }
    for (auto& host : hosts) EXPECT_EQ(host.wait(kPatience), 0U) << "jobs without a window";
}

TEST_F(FirstRunTest, WhatAKilledProcessHasLeftTheNextJobCompletesOnce) {
    writeSettingsFile(400);
    const KernelHandle start = namedEvent("start A");
    {
        test::ChildProcess cutOff = startHost(1, "A");
        SetEvent(start.get());
        ASSERT_TRUE(test::eventually([] { return stored("Other", "Value3") == "1"; }));
        cutOff.kill();
    }
    ASSERT_EQ(stored("Settings", "DllPath"), "(none)") << "the installation was over already";
    EXPECT_TRUE(isMarked());
    for (const char* mine : {"C:\\Data", "D:\\mine"}) {
        SetEvent(start.get());
        EXPECT_EQ(startHost(1, "A").wait(kPatience), 0U) << "a job without a window";
        EXPECT_EQ(stored("Settings", "DataPath"), mine);
        BasicSettings(kStore, "").setValue("Settings", "DataPath", "D:\\mine");
    }
    EXPECT_FALSE(isMarked());
}

}  // namespace jsw
