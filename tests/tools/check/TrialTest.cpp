// Whole runs of "jswctl module": a module's file, and its calls in a process of their own.

#include "tests/support/Eventually.h"
#include "tests/tools/check/RunProgram.h"
#include <jsw/view.h>

#include <utility>

namespace jsw::ctl {
namespace {

#define JSWCTL_TEST_NAME(name, type) #name,

class TrialTest : public ::testing::Test {
  protected:
    test::TempFolder folder_;
};

/// A real module with one of its bytes, or names, changed.
std::string spoilt(const test::TempFolder& folder, const std::string& name, const std::string& from,
                   const std::string& to) {
    std::string bytes = test::readFile("scripted_catalog.dll");
    for (std::size_t at = 0; (at = bytes.find(from, at)) != std::string::npos; at += to.size()) {
        bytes.replace(at, to.size(), to);
    }
    return folder.write(name, bytes);
}

TEST_F(TrialTest, FaultsOfAModuleAreFoundInItsFile) {
    const auto check = [&](const std::string& file) {
        return jswctl("module catalog \"" + file + "\"", folder_);
    };
    const std::string headers("PE\0\0\x64\x86", 6);
    const std::string thirtyTwo("PE\0\0\x4C\x01", 6);
    EXPECT_TRUE(check(spoilt(folder_, "a.dll", headers, thirtyTwo)).says("is a 32-bit library"));
    EXPECT_TRUE(check(spoilt(folder_, "b.dll", "KERNEL32.dll", "KERNEL99.dll"))
                    .says("b.dll needs KERNEL99.dll, which is not found"));
    const Outcome misspelt =
        check(spoilt(folder_, "c.dll", "GetBillboardFileName", "GetBillboardFilename"));
    EXPECT_EQ(misspelt.exitCode, 1U);
    EXPECT_TRUE(
        misspelt.says("GetBillboardFileName is missing; the module has "
                      "GetBillboardFilename"))
        << misspelt.output;
    const Outcome text = check(folder_.write("d.dll", "no module"));
    EXPECT_EQ(text.exitCode, 1U);
    EXPECT_TRUE(text.says("it is not a Windows program or library")) << text.output;
}

TEST_F(TrialTest, AModuleIsTriedInAProcessOfItsOwn) {
    const Outcome good = jswctl("module catalog bcat.dll", folder_);
    EXPECT_EQ(good.exitCode, 0U) << good.output;
    EXPECT_TRUE(good.says("GetBillboardFileName(DEFAULT): ")) << good.output;
    EXPECT_TRUE(good.says("returned welcome.jbb")) << good.output;
    const std::pair<std::string, const char*> rows[] = {
        {"crash", "it crashes in GetBillboardFileName(DEFAULT) (0xC0000005)"},
        {"literal", "GetBillboardFileName(DEFAULT) returns memory that was not allocated"},
        {"leak", "2 of the texts and lists that it allocated"},
        {"loop", "it does not return from GetBillboardFileName(DEFAULT)"},
    };
    for (const auto& [fault, finding] : rows) {
        SetEnvironmentVariableA("JSWCTL_FAULT", fault.c_str());
        const std::string patience = fault == "loop" ? " --seconds 4" : "";
        const Outcome run = jswctl("module catalog faulty_catalog.dll" + patience, folder_);
        EXPECT_EQ(run.exitCode, 1U) << fault;
        EXPECT_TRUE(run.says(finding)) << fault << run.output << run.errors;
    }
}

TEST_F(TrialTest, ATrialEndsWithTheToolThatIsEnded) {
    const auto loops = [] {
        return static_cast<bool>(KernelHandle(OpenMutexA(SYNCHRONIZE, FALSE, "jswctl-test-loop")));
    };
    SetEnvironmentVariableA("JSWCTL_FAULT", "loop");
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    char command[] = "jswctl.exe module catalog faulty_catalog.dll --seconds 300";
    PROCESS_INFORMATION info{};
    ASSERT_TRUE(CreateProcessA(nullptr, command, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &startup, &info));
    const KernelHandle process(info.hProcess);
    const KernelHandle thread(info.hThread);
    EXPECT_TRUE(test::eventually(loops));
    TerminateProcess(process.get(), 1);
    EXPECT_TRUE(test::eventually([&] { return !loops(); }));
}

/// The user chooses the trial job, and the sample engine uses it.
TEST_F(TrialTest, AnEngineIsToldTheTrialJobAndAViewGoesThroughAllItsCalls) {
    const Outcome rules =
        jswctl("module rules reng.dll --pages 3 --copies 2 --ink 90,10 --job report.pdf", folder_);
    EXPECT_TRUE(rules.says("the job 'report.pdf' on 'jswctl', pages 3, copies 2, ink 90,10"))
        << rules.output;
    EXPECT_TRUE(rules.says("EvaluateRule: ")) << rules.output;
    const Outcome view = jswctl("module view jswv.dll", folder_);
    EXPECT_EQ(view.exitCode, 0U) << view.output;
    for (const char* name : {JSW_VIEW_ENTRY_POINTS(JSWCTL_TEST_NAME)}) {
        EXPECT_TRUE(view.says(concat(" ", name, ": "))) << name;
    }
}

}  // namespace
}  // namespace jsw::ctl
