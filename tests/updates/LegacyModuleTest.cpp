#include "PublicLib/win/EntryPoint.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "tests/support/Eventually.h"
#include "tests/support/OwnWindow.h"
#include "window/prompt/PromptIds.h"
#include <jsw/legacy.h>

#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <thread>
#include <utility>

namespace jsw {

namespace {

HWND findPrompt() {
    return test::ownWindow("#32770", JSW_LEGACY_TITLE);
}

std::string textOf(int control) {
    std::array<char, 512> text{};
    SendMessageA(GetDlgItem(findPrompt(), control), WM_GETTEXT, text.size(),
                 reinterpret_cast<LPARAM>(text.data()));
    return text.data();
}

}  // namespace

/// The older module as the library calls it: the prompt runs on its own thread.
class LegacyModuleTest : public ::testing::Test {
  protected:
    void SetUp() override {
        const std::string path = std::string(folderPart(moduleFileName(nullptr))) + "jswo.dll";
        ASSERT_NE(GetFileAttributesA(path.c_str()), INVALID_FILE_ATTRIBUTES);
        module_.reset(LoadLibraryA(path.c_str()));
        ASSERT_TRUE(module_);
#define JSW_FIND(name, type) name = findEntryPoint<type>(module_.get(), #name);
        JSW_LEGACY_ENTRY_POINTS(JSW_FIND)
#undef JSW_FIND
        ASSERT_TRUE(JSWInitEx && JSWTerminate && JSWDisplayPrompt && JSWPostDlgMsg);
    }

    void TearDown() override {
        if (asking_.joinable()) asking_.join();
    }

    /// Starts a prompt; true when its dialog is open.
    bool ask(std::int32_t type, std::int32_t pages) {
        over_ = false;
        asking_ = std::thread([this, type, pages] {
            JSWDisplayPrompt(type, pages);
            over_ = true;
        });
        return test::eventually([] { return IsWindowVisible(findPrompt()) != FALSE; });
    }

    /// Waits for the end of the prompt.
    bool isOver() {
        if (!test::eventually([this] { return over_.load(); })) return false;
        asking_.join();
        return findPrompt() == nullptr;
    }

    void post(std::uintptr_t message) {
        JSWPostDlgMsg(reinterpret_cast<void*>(message));
    }

    JswLegacyInitEx* JSWInitEx = nullptr;
    JswLegacyTerminate* JSWTerminate = nullptr;
    JswLegacyDisplayPrompt* JSWDisplayPrompt = nullptr;
    JswLegacyPostDlgMsg* JSWPostDlgMsg = nullptr;
    std::atomic<bool> over_{false};
    std::thread asking_;
    ModuleHandle module_;
};

TEST_F(LegacyModuleTest, AsksAndIsFedByTheDriver) {
    EXPECT_NE(JSWInitEx("Printer & Co"), 0u);
    ASSERT_TRUE(ask(1, 5));
    EXPECT_EQ(textOf(JSW_LEGACY_PRINTER), "Printer & Co");
    EXPECT_NE(textOf(JSW_LEGACY_TEXT).find("5 pages on 3 sheets."), std::string::npos);
    EXPECT_EQ(textOf(JSW_LEGACY_NOTE), "");

    post(JSW_LEGACY_COVER_OPEN);
    EXPECT_TRUE(test::eventually([] { return textOf(JSW_LEGACY_NOTE) == "The cover is open."; }));
    for (const std::uintptr_t unknown : {std::uintptr_t{0}, std::uintptr_t{99}, UINTPTR_MAX,
                                         reinterpret_cast<std::uintptr_t>(this)}) {
        post(unknown);
    }
    post(JSW_LEGACY_PRINTER_READY);
    EXPECT_TRUE(
        test::eventually([] { return textOf(JSW_LEGACY_NOTE) == "The printer is ready."; }));
    EXPECT_FALSE(over_);

    post(JSW_LEGACY_PRESS_CONTINUE);
    EXPECT_TRUE(isOver());
    JSWTerminate();
}

TEST_F(LegacyModuleTest, EveryAnswerEndsThePrompt) {
    JSWInitEx("Printer");
    const std::pair<UINT, WPARAM> answers[] = {
        {WM_COMMAND, JSW_LEGACY_CONTINUE}, {WM_COMMAND, JSW_LEGACY_CANCEL}, {WM_CLOSE, 0}};
    for (const auto& [message, parameter] : answers) {
        ASSERT_TRUE(ask(99, -1));
        EXPECT_EQ(textOf(JSW_LEGACY_TEXT), "The printer needs your attention (99).");
        PostMessageA(findPrompt(), message, parameter, 0);
        EXPECT_TRUE(isOver()) << message << " " << parameter;
    }
    ASSERT_TRUE(ask(2, 1));
    EXPECT_EQ(LOWORD(SendMessageA(findPrompt(), DM_GETDEFID, 0, 0)), JSW_LEGACY_CONTINUE);
    post(JSW_LEGACY_CLOSE);
    EXPECT_TRUE(isOver());
}

TEST_F(LegacyModuleTest, TerminatingInsideThePromptTakesItAway) {
    JSWInitEx(nullptr);
    ASSERT_TRUE(ask(3, 0));
    JSWTerminate();
    EXPECT_TRUE(isOver());
}

TEST_F(LegacyModuleTest, WithoutAPrinterNothingIsAsked) {
    JSWDisplayPrompt(1, 1);
    post(JSW_LEGACY_PRESS_CONTINUE);
    JSWTerminate();
    EXPECT_EQ(findPrompt(), nullptr);
}

}  // namespace jsw
