// A process-wide object that is let go of while another thread is making it.

#include "PublicLib/locks/Singleton.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <thread>

namespace jsw {

TEST(SingletonTest, WhatWasBegunBeforeTheEndDoesNotStay) {
    Singleton<int> place;
    std::atomic<bool> making{false};
    std::atomic<bool> goOn{false};
    std::shared_ptr<int> ofTheLateOne;
    std::thread late([&] {
        ofTheLateOne = place.instance([&] {
            making = true;
            while (!goOn) Sleep(1);
            return std::make_shared<int>(1);
        });
    });
    while (!making) Sleep(1);
    place.destroy([] {});  // does not wait
    goOn = true;
    late.join();
    EXPECT_EQ(*ofTheLateOne, 1);
    EXPECT_EQ(place.existing(), nullptr);
    EXPECT_EQ(*place.instance([] { return std::make_shared<int>(2); }), 2);
    EXPECT_EQ(*place.instance([] { return std::make_shared<int>(3); }), 2);
}

}  // namespace jsw
