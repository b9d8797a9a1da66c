#pragma once

#include "window/prompt/PromptLayout.h"
#include "window/prompt/PromptTexts.h"
#include "window/ui/Canvas.h"
#include "window/ui/Fonts.h"
#include "window/ui/TextPainter.h"

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>

namespace jsw::window {

/** The dialog of one prompt. All methods except post() belong to the thread that shows it. */
class PromptDialog {
  public:
    /** @param printer in the ANSI code page */
    PromptDialog(const std::string& printer, int32_t type, int32_t totalPages);

    /** Blocks until the dialog is answered or closed. */
    void run();

    /** Posts a driver's message to the open dialog, if there is one. */
    static void post(uintptr_t message);

  private:
    static INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam);

    void createControls();
    void changeLook();
    void changeScale(int dotsPerInch);
    void arrange();
    void onDriverMessage(uintptr_t message);
    void paintGround(HDC dc) const;
    void drawItem(const DRAWITEMSTRUCT& item) const;

    const PromptTexts texts_;
    std::string printer_;
    std::string text_;
    std::string note_;
    Palette palette_;
    Scale scale_;
    std::unique_ptr<Fonts> fonts_;
    PromptLayout layout_;
    HWND dialog_ = nullptr;
};

}  // namespace jsw::window
