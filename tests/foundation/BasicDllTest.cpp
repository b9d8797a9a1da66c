#include "PublicLib/BasicDll.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/SystemFolders.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/HeldUpThread.h"
#include "tests/support/TempFolder.h"

#include <functional>
#include <gmock/gmock.h>
#include <thread>

namespace jsw {

namespace {

int loads = 0;
int unloads = 0;
bool failOnLoad = false;
bool failOnUnload = false;
std::function<void()> duringLoad;

/// Expects the module to be loaded during its hooks.
struct CountingHandler : DllHandler {
    void onLoad(LoadedModule& module) override {
        ++loads;
        EXPECT_EQ(GetModuleHandleA(module.name().c_str()), module.handle());
        if (duringLoad) duringLoad();
        if (failOnLoad) throw Exception("hook failed", 0);
    }
    void onUnload(LoadedModule& module) override {
        ++unloads;
        EXPECT_EQ(GetModuleHandleA(module.name().c_str()), module.handle());
        if (failOnUnload) throw Exception("hook failed", 0);
    }
};

using Dll = BasicDll<CountingHandler>;

/// A process whose first line in the critical log reports a failed hook.
const test::ChildRole failingHook("failing hook", [](const std::string& module) {
    failOnUnload = true;
    {
        Dll dll;
        dll.init(module);
    }
    return unloads;
});

}  // namespace

/// Separate modules: copies of one that nothing else loads.
class BasicDllTest : public ::testing::Test {
  protected:
    BasicDllTest() {
        loads = unloads = 0;
        failOnLoad = failOnUnload = false;
        module_ = folder_.file("module.dll");
        CopyFileA((systemFolder() + "\\msxml3.dll").c_str(), module_.c_str(), FALSE);
    }

    test::TempFolder folder_;
    std::string module_;
};

TEST_F(BasicDllTest, LoadersOfOneFileShareItAndTheLastOneFreesIt) {
    for (int round = 1; round <= 2; ++round) {
        HMODULE handle = nullptr;
        {
            Dll first;
            first.init(module_);
            handle = first.handle();
            {
                Dll second;
                second.init(module_);
                EXPECT_EQ(second.handle(), handle);
                EXPECT_EQ(Dll::refCount(handle), 2);
            }
            EXPECT_EQ(Dll::refCount(handle), 1);
            EXPECT_EQ(unloads, round - 1);
        }
        EXPECT_EQ(loads, round);
        EXPECT_EQ(unloads, round);
        EXPECT_EQ(Dll::refCount(handle), 0);
        EXPECT_EQ(GetModuleHandleA(module_.c_str()), nullptr);
    }
}

TEST_F(BasicDllTest, AThreadThatComesWhileTheModuleIsLoadedSharesIt) {
    Dll first, second;
    test::HeldUpThread other([&] { second.init(module_); });
    duringLoad = [&] { EXPECT_TRUE(other.meetsALock()); };
    first.init(module_);
    other.join();
    duringLoad = nullptr;
    EXPECT_EQ(Dll::refCount(first.handle()), 2);
    EXPECT_EQ(loads, 1);
}

TEST_F(BasicDllTest, AModuleLoadedBySomebodyElseIsHeldInItsOwnRight) {
    const ModuleHandle elsewhere(LoadLibraryA(module_.c_str()));
    {
        Dll dll;
        dll.init(module_);
        EXPECT_EQ(Dll::refCount(dll.handle()), 1);
    }
    EXPECT_EQ(GetModuleHandleA(module_.c_str()), elsewhere.get());
}

TEST_F(BasicDllTest, AFailureNamesFileAndReason) {
    const std::string text = folder_.write("text.dll", "no code");
    const struct {
        std::string file;
        std::int32_t code;
    } rows[] = {{folder_.file("absent.dll"), ERROR_MOD_NOT_FOUND}, {text, ERROR_BAD_EXE_FORMAT}};
    for (const auto& row : rows) {
        Dll dll;
        try {
            dll.init(row.file);
            FAIL() << row.file;
        } catch (const Win32Exception& error) {
            EXPECT_EQ(error.message(), "BasicDll<Handler>::init() Unable to load DLL=" + row.file);
            EXPECT_EQ(error.code(), row.code);
            EXPECT_THAT(error.text(), ::testing::StartsWith("file:../PublicLib\\BasicDll:332: "));
        }
        EXPECT_EQ(dll.handle(), nullptr);
    }
    EXPECT_EQ(loads + unloads, 0);
    EXPECT_EQ(Dll::refCount(nullptr), 0);
}

TEST_F(BasicDllTest, OneFileHasOneCountUnderEverySpelling) {
    Dll first;
    first.init(module_);
    {
        // The system does not always know a loaded file by another spelling of its name.
        const auto unknown = test::replaceImport<decltype(GetModuleHandleA)>(
            test::ImportTable(GetModuleHandleA(nullptr)), "GetModuleHandleA",
            [&](auto original, const char* name) {
                return std::string(name) == module_ ? nullptr : original(name);
            });
        BasicDll<DllHandler> second;
        // On a thread, because this function may have the system's own at hand already.
        std::thread([&] { second.init(module_); }).join();
        EXPECT_EQ(Dll::refCount(first.handle()), 2);
    }
    EXPECT_EQ(Dll::refCount(first.handle()), 1);
}

TEST_F(BasicDllTest, AHookThatFailsAtTheLoadLetsTheModuleGo) {
    failOnLoad = true;
    Dll dll;
    EXPECT_THROW(dll.init(module_), Exception);
    EXPECT_EQ(dll.handle(), nullptr);
    EXPECT_EQ(GetModuleHandleA(module_.c_str()), nullptr);
}

TEST_F(BasicDllTest, ALoaderThatRunsOutOfMemoryLetsTheModuleGo) {
    int left = -1;  // allocations until one fails; below 0 none does
    const auto memory = test::replaceImport<void*(std::size_t)>(
        test::ImportTable(GetModuleHandleA(nullptr)), "malloc",
        [&](auto original, std::size_t size) -> void* {
            return left >= 0 && left-- == 0 ? nullptr : original(size);
        });
    const std::string name = "msvfw32.dll";  // not used by this process
    bool failed = true;
    for (int first = 0; failed; ++first) {
        {
            BasicDll<DllHandler> dll;
            left = first;
            try {
                dll.init(name);
            } catch (const std::exception&) {
            }
            failed = left < 0;
            left = -1;
        }
        EXPECT_EQ(GetModuleHandleA(name.c_str()), nullptr) << first;
    }
}

TEST_F(BasicDllTest, AFailingHookNeverLeavesTheDestructorButIsWrittenDown) {
    constexpr char kLog[] = "C:\\dkab.log";
    DeleteFileA(kLog);
    EXPECT_EQ(test::ChildProcess("failing hook", module_).wait(30000), 1U);
    EXPECT_THAT(test::readFile(kLog),
                ::testing::EndsWith(" DebugData                 BasicDll<Handler>::~BasicDll(): "
                                    "Caught exception on '" +
                                    module_ + "'\r\n"));
    DeleteFileA(kLog);
}

}  // namespace jsw
