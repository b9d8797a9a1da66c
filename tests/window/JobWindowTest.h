#pragma once

#include "PublicLib/win/Handles.h"
#include "tests/support/CallRecord.h"
#include "tests/support/Eventually.h"
#include "tests/support/OwnWindow.h"
#include "tests/support/TempFolder.h"
#include "window/view/WindowIds.h"
#include <jsw/view.h>

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

namespace jsw::test {

extern CallRecord reports;  ///< of the window to its host
extern HANDLE hostBusy;     ///< while set, the host waits for it in its status callback

/// The view module as the library uses it, with a real window.
class JobWindowTest : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;
    void startJob(int totalPages = 3);
    void show();

    [[nodiscard]] HWND control(int id) const { return GetDlgItem(window_, id); }
    [[nodiscard]] bool isShown(int id) const { return IsWindowVisible(control(id)) != FALSE; }
    [[nodiscard]] std::string text(int id) const;
    void press(int id) const {
        PostMessageA(window_, WM_COMMAND, static_cast<WPARAM>(id),
                     reinterpret_cast<LPARAM>(control(id)));
    }
    /// Waits until everything posted so far has been handled.
    void settle() const { SendMessageA(window_, WM_NULL, 0, 0); }
    [[nodiscard]] bool isAsked(const std::string& question) const {
        return eventually(
            [&] { return isShown(JSW_VIEW_QUESTION) && text(JSW_VIEW_QUESTION) == question; });
    }
    [[nodiscard]] int focus() const;
    void key(WPARAM key) const;

    /// The colour just inside the left edge of a button.
    [[nodiscard]] COLORREF edgeOf(int id) const;

#define JSW_DECLARE(name, type) type* name = nullptr;
    JSW_VIEW_ENTRY_POINTS(JSW_DECLARE)
#undef JSW_DECLARE
    ModuleHandle module_;
    TempFolder folder_;
    HWND window_ = nullptr;
};

}  // namespace jsw::test
