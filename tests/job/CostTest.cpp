// Counts what a job asks of the system, so that a change that asks for more fails here.

#include "tests/job/JobTest.h"
#include "tests/support/ImportGate.h"

#include <atomic>
#include <utility>

namespace jsw {

class CostTest : public test::JobTest {
  protected:
    void SetUp() override {
        JobTest::SetUp();
        Settings().setValue(setting::kLoggerKey, "startLog", 0);
        addBillboard("TIP", {.file = "tip.bb"});
        script_.ruleResults = {"TIP"};
        runJob();  // the first one looks up the default billboard
    }

    const test::ImportTable imports_{LoadLibraryA("jsw.dll")};
};

TEST_F(CostTest, APlainJobAsksTheSystemForNoMoreThanItNeeds) {
    test::ImportGate gate(imports_);
    // A switch that was read in the same tick is read again. With a clock that advances at every
    // query the counts are the same on every machine.
    std::atomic<DWORD> tick{0};
    const auto clock = test::replaceImport<decltype(GetTickCount)>(imports_, "GetTickCount",
                                                                   [&] { return ++tick; });
    runJob();

    constexpr std::pair<const char*, std::uint32_t> rows[] = {
        {"RegOpenKeyExA", 31},
        {"RegOpenKeyA", 1},  // for the XML parser
        {"RegQueryValueExA", 19},
        {"RegEnumValueA", 0},
        {"RegCreateKeyExA", 0},
        {"RegSetValueExA", 0},
        {"RegDeleteValueA", 0},
        {"AllocateAndInitializeSid", 0},
        {"CreateFileA", 0},
        {"LoadLibraryA", 2},  // the catalog and the rules engine: the
                              // view stays loaded
        {"malloc", 230},
        {"_beginthreadex", 1},
    };
    for (const auto& [function, atMost] : rows) {
        EXPECT_LE(gate.calls(function), atMost) << function;
    }
}

}  // namespace jsw
