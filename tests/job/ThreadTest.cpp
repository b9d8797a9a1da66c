#include "PublicLib/win/Handles.h"
#include "jsw/Thread.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace jsw {

namespace {

class WaitForEvent : public Runnable {
  public:
    void run() override { WaitForSingleObject(event_.get(), INFINITE); }
    void letGo() { SetEvent(event_.get()); }

  private:
    const KernelHandle event_{CreateEventA(nullptr, TRUE, FALSE, nullptr)};
};

}  // namespace

TEST(ThreadTest, AWaitTellsWhetherTheThreadHasEnded) {
    WaitForEvent runnable;
    Thread thread(&runnable);
    EXPECT_FALSE(thread.wait(0));  // it has not been started
    thread.launch();
    EXPECT_FALSE(thread.wait(0));
    EXPECT_FALSE(thread.wait(20));
    runnable.letGo();
    EXPECT_TRUE(thread.wait(INFINITE));
    EXPECT_TRUE(thread.wait(0));
}

}  // namespace jsw
