/**
 * @file Window.h
 * The job window: shows the state of one job and reports what the user does.
 */
#pragma once

#include "samples/view/BillboardPainter.h"
#include "samples/view/Canvas.h"
#include "samples/view/InkPainter.h"
#include "samples/view/ViewState.h"

#include <windows.h>

#include <cstdint>
#include <memory>
#include <optional>

namespace sampleview {

/**
 * One job's window. Lives on a thread of its own; every method belongs to that thread.
 *
 * Calling the host is always the last thing that a handler does: the host may close the job from
 * inside its function, and the window may then be gone.
 */
class Window {
  public:
    Window(std::shared_ptr<ViewState> state, HINSTANCE instance);

    /** Shows the window and handles its messages until the job is closed. */
    void run();

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

    bool create();
    [[nodiscard]] Place initialPlace(int width, int height) const;

    // Showing the state
    void refresh();
    void refreshTexts();
    void refreshProgress();
    void refreshInk();
    void refreshBillboard();
    void refreshControls();
    void refreshVisibility();
    void notePlace();
    void paintHeader();
    void drawItem(const DRAWITEMSTRUCT& item);
    LRESULT controlBrush(HWND control, HDC dc);

    // What the user does
    void pressed(int id);
    void navigate(const char* action);
    void pressPageButton(std::size_t index);
    void cancelJob();
    void toggleUpdateSoftware();
    void toggleSpecialMessages();
    void hideAndReport(std::int32_t event);
    LRESULT systemCommand(WPARAM wParam, LPARAM lParam);

    std::shared_ptr<ViewState> state_;
    HINSTANCE instance_;
    int unit_; /**< dots per inch of the screen */
    Fonts fonts_;
    GdiObject<HBRUSH> headerBrush_;
    GdiObject<HBRUSH> bodyBrush_;
    GdiObject<HBRUSH> simulatedBrush_;
    HWND window_ = nullptr;
    JobData data_; /**< as last taken from the state */
    InkDisplay ink_;
    Billboard billboard_;
    std::optional<std::uint32_t> billboardSerial_; /**< of the page shown */
    bool shown_ = false;
};

}  // namespace sampleview
