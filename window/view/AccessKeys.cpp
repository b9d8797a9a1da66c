#include "window/view/AccessKeys.h"

#include "common/Letters.h"
#include "window/ui/TextFit.h"

#include <array>
#include <set>
#include <string_view>

namespace jsw::window {
namespace {

using Keys = std::set<std::string>;

/** An ASCII letter or digit, in lower case; no other character is an access key here. */
std::string keyAt(std::string_view text, std::size_t place) {
    const char first = common::toLower(text.substr(place, 1)).front();
    if ((first >= 'a' && first <= 'z') || (first >= '0' && first <= '9')) return {first};
    const bool beginsLonger = (static_cast<unsigned char>(first) & 0xC0U) == 0xC0U;
    if (!beginsLonger) return {};
    std::size_t end = place + 1;
    while (characterStart(text, end) == place && end < text.size()) ++end;
    return std::string(text.substr(place, end - place));
}

std::string markedKey(std::string_view label) {
    for (std::size_t i = 0; i + 1 < label.size(); ++i) {
        if (label[i] != '&') continue;
        if (label[++i] != '&') return keyAt(label, i);
    }
    return {};
}

/** The label with the mark before the first of its letters that is free, or without one. */
std::string markedAnew(std::string_view label, const Keys& taken) {
    const std::string plain = withoutAccessKey(label);
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const std::string key = keyAt(plain, i);
        if (key.empty() || taken.contains(key)) continue;
        return asLabel(plain.substr(0, i)) + "&" + asLabel(plain.substr(i));
    }
    return asLabel(plain);
}

/** The texts of the controls in each state of the window. */
std::array<std::vector<const std::string*>, 3> labelsOf(const WindowTexts& texts) {
    std::array<std::vector<const std::string*>, 3> states;
    for (auto& labels : states) {
        labels = {&texts.previous, &texts.current, &texts.next, &texts.inkStatus};
    }
    states[0].insert(states[0].end(),
                     {&texts.cancel, &texts.updateAutomatically, &texts.specialMessages});
    states[1].insert(states[1].end(), {&texts.cancelYes, &texts.cancelNo});
    states[2].insert(states[2].end(), {&texts.closeYes, &texts.closeNo});
    return states;
}

}  // namespace

std::vector<std::string> giveAccessKeys(Page& page, const WindowTexts& texts) {
    Keys taken;
    for (const auto& labels : labelsOf(texts)) {
        for (const std::string* label : labels) taken.insert(markedKey(*label));
    }
    taken.erase("");
    std::vector<std::string> clashes;
    for (ContentButton& button : page.buttons) {
        if (taken.contains(markedKey(button.label))) {
            const std::string before = button.label;
            button.label = markedAnew(before, taken);
            clashes.push_back("the access key of \"" + before +
                              "\" is the window's or another button's; it becomes \"" +
                              button.label + "\"");
        }
        if (const std::string key = markedKey(button.label); !key.empty()) taken.insert(key);
    }
    return clashes;
}

std::vector<std::string> clashingKeys(const WindowTexts& texts) {
    std::set<std::string> clashes;
    for (const auto& labels : labelsOf(texts)) {
        Keys taken;
        for (const std::string* label : labels) {
            const std::string key = markedKey(*label);
            const bool isOwn = !key.empty() && taken.insert(key).second;
            if (!isOwn) clashes.insert("\"" + *label + "\" has no access key of its own");
        }
    }
    return {clashes.begin(), clashes.end()};
}

}  // namespace jsw::window
