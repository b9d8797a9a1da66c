/**
 * @file Window.h
 * The job window: shows the state of one job and reports the user's actions.
 */
#pragma once

#include "window/ui/ButtonPainter.h"
#include "window/ui/Look.h"
#include "window/view/BillboardPainter.h"
#include "window/view/Tooltips.h"
#include "window/view/ViewState.h"
#include "window/view/WindowContent.h"
#include "window/view/WindowLayout.h"
#include "window/view/WindowSpeech.h"

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace jsw::window {

/** Owns an icon. */
struct IconDestroyer {
    void operator()(HICON icon) const { DestroyIcon(icon); }
};
using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, IconDestroyer>;

/**
 * One job's window. All methods run on the window's own thread. It never waits for the host: its
 * reports go through the state's queue.
 */
class Window {
  public:
    explicit Window(std::shared_ptr<ViewState> state);

    /** Shows the window and handles its messages until the job is closed. */
    void run();

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handlePainting(UINT message, WPARAM wParam, LPARAM lParam);

    // Window.cpp: creation and destruction
    bool create();
    void createContent();
    void setIcons();
    void setScale(int dotsPerInch);
    [[nodiscard]] RECT initialFrame() const;
    [[nodiscard]] SIZE savedFrame() const;
    [[nodiscard]] SIZE leastFrame() const;
    void changeScale(int dotsPerInch, const RECT& frame);
    void changeLook();
    void notePlace();

    // WindowRefresh.cpp: showing the state
    void refresh();
    void refreshBillboard();
    void refreshLayout();
    void invalidateChanges(const WindowLayout& before, const WindowContent& contentBefore);
    void refreshControls();
    void refreshVisibility();
    void paintGround(HDC dc) const;
    void drawItem(const DRAWITEMSTRUCT& item) const;
    void drawLink(const DRAWITEMSTRUCT& item) const;
    void drawOwn(const Canvas& canvas, const Box& box, int id) const;
    [[nodiscard]] LRESULT controlBrush(HWND control, HDC dc) const;
    [[nodiscard]] Colour groundOf(int id) const;
    [[nodiscard]] Look look() const;
    [[nodiscard]] ButtonLook buttonLook(int id) const;

    // WindowActions.cpp: the user's actions
    bool pressedKey(const MSG& message);
    void showKeyboardCues(const MSG& message);
    void pressed(int id);
    void pressPageButton(const std::vector<ContentButton>& buttons, int index);
    void ask(Question question);
    void answerYes();
    void cancelPressed();
    void cancelJob();
    void closePressed();
    void toggleUpdateSoftware();
    void toggleSpecialMessages();
    void hideAndReport(std::int32_t event);
    void focusFirst();
    LRESULT systemCommand(WPARAM wParam, LPARAM lParam);

    // WindowScroll.cpp: a page that does not fit
    void scrollTo(int position);
    void scrollBarMoved(int request);
    void wheelTurned(int delta);
    [[nodiscard]] bool scrollsByKey(WPARAM key);
    void showFocused(int id);

    std::shared_ptr<ViewState> state_;
    HINSTANCE instance_;
    const std::vector<std::string> languages_; /**< the user's, the closest first */
    const WindowTexts texts_;
    Palette palette_;
    Scale scale_;
    std::unique_ptr<Fonts> fonts_;
    Icon largeIcon_;
    Icon smallIcon_;
    GdiObject<HBRUSH> groundBrush_;
    GdiObject<HBRUSH> cardBrush_;
    GdiObject<HBRUSH> footerBrush_;
    HWND window_ = nullptr;
    HWND lastFocus_ = nullptr; /**< the focus while another window is active */
    JobData data_;             /**< as last taken from the state */
    Question question_ = Question::none;
    WindowContent content_;
    WindowLayout layout_;
    Billboard billboard_;
    Cartridges cartridges_;
    int scrolled_ = 0;   /**< pixels of the page's text above its area */
    int wheelTurns_ = 0; /**< rest of the mouse wheel, less than a pixel */
    std::optional<std::uint32_t> billboardSerial_; /**< of the page shown */
    Tooltips tooltips_;
    WindowSpeech speech_;
    int runningStep_ = 0;
    bool shown_ = false;
    bool showsFocus_ = true; /**< after use of the keyboard, or always */
    bool showsKeys_ = true;  /**< likewise, access keys */
};

}  // namespace jsw::window
