#include "window/view/WindowSpeech.h"

#include "window/view/Controls.h"
#include "window/view/WindowIds.h"

#include <windows.h>

#include <commctrl.h>

#include <oleacc.h>
#include <string>
#include <utility>
#include <vector>

namespace jsw::window {
namespace {

AccessibleItem readOnly(long role, std::string name, std::string value = "") {
    return {std::move(name), std::move(value), "", role, STATE_SYSTEM_READONLY, {}};
}

std::vector<AccessibleItem> inkParts(const WindowContent& content, const WindowLayout& layout) {
    std::vector<AccessibleItem> parts;
    for (std::size_t i = 0; i < content.ink.size() && i < layout.inkLayout.cells.size(); ++i) {
        const InkCell& cell = layout.inkLayout.cells[i];
        AccessibleItem item =
            readOnly(ROLE_SYSTEM_PROGRESSBAR, content.ink[i].label, content.ink[i].level);
        item.box =
            Box{cell.label.box.left, cell.label.box.top, cell.bar.right, cell.bar.bottom}.moved(
                -layout.ink.left, -layout.ink.top);
        parts.push_back(std::move(item));
    }
    return parts;
}

std::vector<AccessibleItem> pageParts(const Page& page, const WindowLayout& layout) {
    std::vector<AccessibleItem> parts;
    for (const Paragraph& paragraph : page.paragraphs) {
        AccessibleItem item = readOnly(ROLE_SYSTEM_STATICTEXT, textOf(paragraph));
        item.box = layout.page.textArea.moved(-layout.page.card.left, -layout.page.card.top);
        parts.push_back(std::move(item));
    }
    return parts;
}

}  // namespace

WindowSpeech::~WindowSpeech() {
    // Screen readers may hold the models longer.
    for (const auto& [id, model] : models_) model->control = nullptr;
}

void WindowSpeech::attach(HWND window) {
    for (const int id : ownControls()) {
        auto model = std::make_shared<AccessibleModel>();
        model->control = GetDlgItem(window, id);
        SetWindowSubclass(model->control, answer, static_cast<UINT_PTR>(id),
                          reinterpret_cast<DWORD_PTR>(this));
        models_[id] = std::move(model);
    }
}

LRESULT CALLBACK WindowSpeech::answer(HWND control, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR id, DWORD_PTR speech) {
    auto& self = *reinterpret_cast<WindowSpeech*>(speech);
    if (message == WM_GETOBJECT) {
        const LRESULT object =
            self.server_.answer(self.models_[static_cast<int>(id)], wParam, lParam);
        if (object) return object;
    }
    if (message == WM_NCDESTROY) {
        self.models_[static_cast<int>(id)]->control = nullptr;
        RemoveWindowSubclass(control, answer, id);
    }
    return DefSubclassProc(control, message, wParam, lParam);
}

void WindowSpeech::update(const WindowContent& content, const WindowLayout& layout,
                          const Page& page, const WindowTexts& texts) {
    for (const auto& [id, text] : layout.texts) {
        say(id, readOnly(ROLE_SYSTEM_STATICTEXT, text.full.empty() ? text.text : text.full), {});
    }
    say(JSW_VIEW_PROGRESS_BAR,
        readOnly(ROLE_SYSTEM_PROGRESSBAR, texts.progressName,
                 content.permille
                     ? common::fillIn(texts.percent, {std::to_string(*content.permille / 10)})
                     : content.progress),
        {});
    say(JSW_VIEW_INK, readOnly(ROLE_SYSTEM_GROUPING, texts.inkName, content.inkSentence),
        inkParts(content, layout));
    AccessibleItem billboard = readOnly(ROLE_SYSTEM_PANE, page.title);
    billboard.description = pageText(page);
    if (!layout.page.ink.cells.empty()) billboard.description += "\n" + content.inkSentence;
    say(JSW_VIEW_BILLBOARD, std::move(billboard), pageParts(page, layout));
    say(JSW_VIEW_QUESTION, readOnly(ROLE_SYSTEM_ALERT, content.questionText), {});
    for (const PlacedButton& link : layout.page.inText) {
        if (!isLink(link.id)) continue;
        AccessibleItem item = readOnly(
            ROLE_SYSTEM_LINK, withoutAccessKey(link.full.empty() ? link.label : link.full));
        item.state = STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_LINKED;
        say(link.id, std::move(item), {});
    }
}

void WindowSpeech::say(int id, AccessibleItem item, std::vector<AccessibleItem> parts) {
    AccessibleModel& model = *models_[id];
    const bool nameChanged = model.self.name != item.name;
    const bool valueChanged = model.self.value != item.value;
    model.self = std::move(item);
    model.parts = std::move(parts);
    if (nameChanged) {
        NotifyWinEvent(
            model.self.role == ROLE_SYSTEM_ALERT ? EVENT_SYSTEM_ALERT : EVENT_OBJECT_NAMECHANGE,
            model.control, OBJID_CLIENT, CHILDID_SELF);
    }
    if (valueChanged) {
        NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, model.control, OBJID_CLIENT, CHILDID_SELF);
    }
}

}  // namespace jsw::window
