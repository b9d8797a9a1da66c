#pragma once

#include "tests/job/JobTest.h"

#include <cstdint>
#include <functional>
#include <string>

namespace jsw::test {

/// A job whose driver does what onStatus says when its status callback is called; ends the job at
/// first.
class CallbackTest : public JobTest {
  protected:
    static inline std::function<void(std::uint32_t)> onStatus;
    void SetUp() override {
        JobTest::SetUp();
        addBillboard("TIP", {.file = "tip.bb", .type = "promotion"});
        onStatus = [](std::uint32_t) { api_.terminate(); };
    }
    void TearDown() override {
        onStatus = nullptr;
        JobTest::TearDown();
    }

    std::uint8_t start() {
        return startJob({.callback = [](std::uint32_t status) {
            if (onStatus) onStatus(status);
        }});
    }
    /// Lets the view report an event at the end of a call.
    void reportAt(const std::string& callStart) {
        script_.onViewCall = [this, callStart](const std::string& call) {
            if (call.starts_with(callStart)) script_.reportEvent(9);
        };
    }
    bool isEnded() const { return viewCalls("Uninitialize").size() == 1; }
    /// The end may run on a separate thread.
    void expectEndSoon() {
        EXPECT_TRUE(eventually([&] { return isEnded(); }));
    }
};

}  // namespace jsw::test
