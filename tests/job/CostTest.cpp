// What a job asks of the system, counted: a later change that asks for more is seen here.

#include "tests/job/JobTest.h"
#include "tests/support/ImportGate.h"

#include <atomic>

namespace jsw {

class CostTest : public test::JobTest {
  protected:
    void SetUp() override {
        JobTest::SetUp();
        Settings().setValue(setting::kLoggerKey, "startLog", 0);
        addBillboard("TIP", {.file = "tip.bb"});
        script_.ruleResults = {"TIP"};
        runJob();  // the first one looks the default billboard up
    }

    const test::ImportTable imports_{LoadLibraryA("jsw.dll")};
};

TEST_F(CostTest, APlainJobAsksTheSystemForNoMoreThanItNeeds) {
    test::ImportGate gate(imports_);
    // A switch that was read in this very tick is read again. With a clock that moves on at every
    // look the counts are the same on every machine.
    std::atomic<DWORD> tick{0};
    const auto clock = test::replaceImport<decltype(GetTickCount)>(imports_, "GetTickCount",
                                                                   [&] { return ++tick; });
    runJob();

    constexpr struct {
        const char* function;
        std::uint32_t atMost;
    } rows[] = {
        {"RegOpenKeyExA", 31},
        {"RegOpenKeyA", 1},  // of the XML parser
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
