/**
 * How the window shows the state of the job.
 */
#include "window/view/AccessKeys.h"
#include "window/view/BillboardFile.h"
#include "window/view/Controls.h"
#include "window/view/Window.h"
#include "window/view/WindowIds.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <utility>

namespace jsw::window {
namespace {

constexpr UINT_PTR kRunningTimer = 1;
constexpr UINT kRunningInterval = 40;  // milliseconds

}  // namespace

void Window::refresh() {
    data_ = state_->takeData();
    if (data_.cancelling && question_ == Question::cancel) question_ = Question::none;
    refreshBillboard();
    refreshLayout();
    refreshControls();
    refreshVisibility();
}

void Window::refreshBillboard() {
    if (billboardSerial_ == data_.billboardSerial) return;
    billboardSerial_ = data_.billboardSerial;
    scrolled_ = 0;
    billboard_.page = loadBillboard(data_.dataPath, data_.billboard, languages_, texts_);
    cartridges_ = loadCartridges(data_.dataPath, languages_);
    for (const std::string& clash : giveAccessKeys(billboard_.page, texts_)) {
        OutputDebugStringA(("jswv.dll: " + data_.billboard + ": " + clash + "\n").c_str());
    }
    billboard_.picture = billboard_.page.picture == Picture::file
                             ? PictureFile(scriptPath(data_.dataPath, billboard_.page.pictureFile))
                             : PictureFile();
    setControlText(window_, JSW_VIEW_BILLBOARD, billboard_.page.title);
    InvalidateRect(GetDlgItem(window_, JSW_VIEW_BILLBOARD), nullptr, FALSE);
}

void Window::refreshLayout() {
    RECT area;
    if (!billboardSerial_ || IsIconic(window_) || !GetClientRect(window_, &area)) return;
    const WindowLayout before = std::move(layout_);
    const WindowContent contentBefore = std::move(content_);
    content_ = describeJob(data_, question_, texts_, cartridges_);
    layout_ = layoutWindow(content_, billboard_.page, {area.right, area.bottom}, scrolled_, texts_,
                           FontMeasure(*fonts_), scale_);
    scrolled_ = layout_.page.scrolled;
    if (layout_ == before && content_ == contentBefore) return;
    setControlText(window_, 0, content_.title);
    applyLayout(window_, layout_);
    setControlText(window_, JSW_VIEW_INK, content_.inkSentence);
    setControlText(window_, JSW_VIEW_QUESTION, content_.questionText);
    tooltips_.update(layout_);
    speech_.update(content_, layout_, billboard_.page, texts_);
    invalidateChanges(before, contentBefore);
}

void Window::invalidateChanges(const WindowLayout& before, const WindowContent& contentBefore) {
    const auto invalidate = [this](int id) {
        InvalidateRect(GetDlgItem(window_, id), nullptr, FALSE);
    };
    const bool groundChanged = layout_.size != before.size || layout_.footer != before.footer ||
                               layout_.badge != before.badge ||
                               layout_.page.card != before.page.card;
    // Controls that have not changed keep their pixels.
    if (groundChanged) InvalidateRect(window_, nullptr, TRUE);
    for (const auto& text : layout_.texts) {
        if (std::find(before.texts.begin(), before.texts.end(), text) == before.texts.end()) {
            invalidate(text.id);
        }
    }
    if (content_.permille != contentBefore.permille || layout_.progressBar != before.progressBar) {
        invalidate(JSW_VIEW_PROGRESS_BAR);
    }
    if (layout_.inkLayout != before.inkLayout) invalidate(JSW_VIEW_INK);
    if (layout_.page != before.page) {
        invalidate(JSW_VIEW_BILLBOARD);
        for (const PlacedButton& control : layout_.page.inText) invalidate(control.id);
    }
    if (layout_.questionLines != before.questionLines) invalidate(JSW_VIEW_QUESTION);
}

void Window::refreshControls() {
    enableControl(window_, JSW_VIEW_PREVIOUS, data_.navigation);
    enableControl(window_, JSW_VIEW_NEXT, data_.navigation);
    enableControl(window_, JSW_VIEW_CANCEL, !data_.cancelling);
    const auto check = [&](int id, bool on) {
        CheckDlgButton(window_, id, on ? BST_CHECKED : BST_UNCHECKED);
    };
    check(JSW_VIEW_UPDATE_AUTOMATICALLY, data_.updateSoftware);
    check(JSW_VIEW_SPECIAL_MESSAGES, data_.showSpecialMessages);
}

void Window::refreshVisibility() {
    if (data_.visible != shown_) {
        shown_ = data_.visible;
        // A job must not take the focus from the user's work.
        const int appear = data_.startMinimized ? SW_SHOWMINNOACTIVE : SW_SHOWNOACTIVATE;
        ShowWindow(window_, shown_ ? appear : SW_HIDE);
        notePlace();
    }
    if (shown_ && data_.restoreWanted && IsIconic(window_)) ShowWindow(window_, SW_SHOWNOACTIVATE);
    if (shown_ && !content_.permille && animationsWanted()) {
        SetTimer(window_, kRunningTimer, kRunningInterval, nullptr);
    } else {
        KillTimer(window_, kRunningTimer);
    }
}

Look Window::look() const {
    return {palette_, *fonts_, scale_};
}

ButtonLook Window::buttonLook(int id) const {
    return {look(), groundOf(id), id == JSW_VIEW_NO, showsFocus_, showsKeys_};
}

void Window::paintGround(HDC dc) const {
    RECT area;
    GetClientRect(window_, &area);
    const Canvas canvas(dc, {});
    const Box footer = layout_.footer;
    canvas.fill({0, 0, area.right, footer.top}, palette_.ground);
    canvas.fill(footer, palette_.footer);
    canvas.fill({0, footer.top, area.right, footer.top + std::max(scale_(1), 1)}, palette_.line);
}

void Window::drawItem(const DRAWITEMSTRUCT& item) const {
    const int id = static_cast<int>(item.CtlID);
    if (isLink(id)) return drawLink(item);
    paintBuffered(item.hDC, item.rcItem, [&](const Canvas& canvas, const Box& box) {
        canvas.fill(box, groundOf(id));
        drawOwn(canvas, box, id);
    });
}

void Window::drawLink(const DRAWITEMSTRUCT& item) const {
    for (const PlacedButton& link : layout_.page.inText) {
        if (link.id != static_cast<int>(item.CtlID)) continue;
        const Box seen = layout_.page.seenOf(link);
        window::drawLink(item, link.box.moved(-seen.left, -seen.top), buttonLook(link.id));
    }
}

void Window::drawOwn(const Canvas& canvas, const Box& box, int id) const {
    switch (id) {
        case JSW_VIEW_PROGRESS_BAR:
            if (content_.permille) {
                paintBar(canvas, box, *content_.permille, palette_.accent, look());
            } else {
                paintRunningBar(canvas, box, runningStep_, look());
            }
            return;
        case JSW_VIEW_INK:
            return paintInk(canvas, layout_.ink, layout_.inkLayout, look());
        case JSW_VIEW_BILLBOARD:
            return paintBillboard(canvas, layout_.page.card, billboard_, layout_.page, look());
        case JSW_VIEW_QUESTION:
            for (const PlacedText& line : layout_.questionLines) {
                paintText(canvas, onCanvas(line, layout_.question), look());
            }
            return;
        case JSW_VIEW_SIMULATED:
            canvas.fillRound(box, box.height() / 2, palette_.badge);
            break;
        default:
            break;
    }
    for (const auto& text : layout_.texts) {
        if (text.id != id) continue;
        const Box origin = id == JSW_VIEW_SIMULATED ? layout_.badge : text.placed.box;
        paintText(canvas, onCanvas(text.placed, origin), look());
    }
}

Colour Window::groundOf(int id) const {
    if (isOnPage(id)) return palette_.card;
    return isInFooter(id) ? palette_.footer : palette_.ground;
}

LRESULT Window::controlBrush(HWND control, HDC dc) const {
    const int id = GetDlgCtrlID(control);
    SetTextColor(dc, rgb(palette_.text));
    SetBkColor(dc, rgb(groundOf(id)));
    const auto& brush = isOnPage(id) ? cardBrush_ : isInFooter(id) ? footerBrush_ : groundBrush_;
    return reinterpret_cast<LRESULT>(brush.get());
}

}  // namespace jsw::window
