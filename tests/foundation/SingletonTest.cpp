#include "PublicLib/locks/Singleton.h"
#include "tests/support/HeldUpThread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace jsw {

/// One thread creates the object while another one requests or destroys it.
class SingletonTest : public ::testing::Test {
  protected:
    void SetUp() override {
        maker_ = std::thread([this] { made_ = get(1); });
        ASSERT_TRUE(test::eventually([this] { return making_ == 1; }));
    }
    void TearDown() override {
        if (maker_.joinable()) maker_.join();
    }

    std::shared_ptr<int> get(int value) {
        return place_.instance([&] {
            ++making_;
            EXPECT_TRUE(test::eventually([this] { return mayGoOn_.load(); }));
            return std::make_shared<int>(value);
        });
    }

    Singleton<int> place_;
    std::atomic<int> making_{0};
    std::atomic<bool> mayGoOn_{false};
    std::shared_ptr<int> made_;
    std::thread maker_;
};

TEST_F(SingletonTest, WhoComesWhileItIsMadeSharesIt) {
    std::shared_ptr<int> second;
    test::HeldUpThread other([&] { second = get(2); });
    EXPECT_TRUE(other.meetsALock());
    mayGoOn_ = true;
    other.join();
    maker_.join();
    EXPECT_EQ(second, made_);
    EXPECT_EQ(making_, 1);
}

TEST_F(SingletonTest, WhatWasBegunBeforeTheEndDoesNotStay) {
    singletonsStay = false;
    place_.destroy([] {});  // does not wait
    mayGoOn_ = true;
    maker_.join();
    EXPECT_EQ(*made_, 1);
    EXPECT_EQ(place_.existing(), nullptr);
    singletonsStay = true;
    EXPECT_EQ(*get(2), 2);
    EXPECT_EQ(*get(3), 2);
}

}  // namespace jsw
