#include "window/view/AccessKeys.h"

#include "window/ui/TextFit.h"

#include <optional>
#include <set>

namespace jsw::view {
namespace {

/** An ASCII letter or digit, in lower case; no other character is an access key here. */
std::optional<char> keyOf(char letter) {
    if (letter >= 'A' && letter <= 'Z') return static_cast<char>(letter - 'A' + 'a');
    const bool isKey = (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9');
    return isKey ? std::optional(letter) : std::nullopt;
}

std::optional<char> markedKey(std::string_view label) {
    for (std::size_t i = 0; i + 1 < label.size(); ++i) {
        if (label[i] != '&') continue;
        if (label[++i] != '&') return keyOf(label[i]);
    }
    return std::nullopt;
}

/** The access keys of all of the window's own controls. */
std::set<char> keysOfWindow(const Strings& strings) {
    std::set<char> keys;
    for (const char* label :
         {strings.previous, strings.current, strings.next, strings.inkStatus,
          strings.updateAutomatically, strings.specialMessages, strings.cancel, strings.cancelYes,
          strings.cancelNo, strings.closeYes, strings.closeNo}) {
        if (const auto key = markedKey(label)) keys.insert(*key);
    }
    return keys;
}

/** The label with the mark before its first free letter, or without a mark. */
std::string markedAnew(std::string_view label, const std::set<char>& taken) {
    const std::string plain = ui::withoutAccessKey(label);
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const auto key = keyOf(plain[i]);
        if (!key || taken.contains(*key)) continue;
        return ui::asLabel(plain.substr(0, i)) + "&" + ui::asLabel(plain.substr(i));
    }
    return ui::asLabel(plain);
}

}  // namespace

std::vector<std::string> giveAccessKeys(Page& page, const Strings& strings) {
    std::vector<std::string> clashes;
    std::set<char> taken = keysOfWindow(strings);
    for (ContentButton& button : page.buttons) {
        const auto wanted = markedKey(button.label);
        if (wanted && taken.contains(*wanted)) {
            clashes.push_back("the access key of the button \"" + button.label + "\" is taken");
            button.label = markedAnew(button.label, taken);
        }
        if (const auto key = markedKey(button.label)) taken.insert(*key);
    }
    return clashes;
}

}  // namespace jsw::view
