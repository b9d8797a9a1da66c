#include "tools/jswctl/check/SettingRows.h"

#include "PublicLib/text/Text.h"
#include "tools/jswctl/check/SettingLists.h"

#include <algorithm>
#include <string_view>

namespace jsw::ctl {

namespace {

constexpr char kPrinterStore[] = "IjPrtSettings";

std::string withoutBackslash(std::string_view key) {
    while (!key.empty() && key.back() == '\\') key.remove_suffix(1);
    return std::string(key);
}

SettingRow rowOf(const setting::Text& text, const StoreImage& image) {
    EffectiveText effective = image.text(text);
    return {withoutBackslash(text.key), text.name, "text", std::move(effective.value),
            effective.source};
}

SettingRow rowOf(const setting::Number& number, const StoreImage& image) {
    const EffectiveNumber effective = image.number(number);
    return {withoutBackslash(number.key), number.name, "number", concat(effective.value),
            effective.source};
}

/// A job's default for a missing text if it depends on the host; otherwise empty.
std::string hostDefault(const setting::Text& text, const HostFacts& facts) {
    if (text.key == setting::kControllerKey) return facts.localId + text.defaultValue;
    if (&text == &setting::kDataPath || &text == &setting::kDllPath) return facts.initialPath;
    if (&text == &setting::kPcsClient) return defaultDeviceClient(facts);
    return {};
}

SettingRow withHostDefault(const setting::Text& text, const HostFacts& facts, SettingRow row) {
    std::string value = hostDefault(text, facts);
    // An empty text counts as missing, except the device client's.
    const bool isThere = isSet(row.source) && (!row.value.empty() || &text == &setting::kPcsClient);
    if (value.empty() || isThere) return row;
    row.value = std::move(value);
    if (row.source != Source::wrongType && row.source != Source::unreadable) {
        row.source = Source::fallback;
    }
    return row;
}

/// A row of the store for all printers, beside the host's own.
SettingRow ofPrinters(SettingRow row) {
    row.key = row.key.empty() ? kPrinterStore : concat(kPrinterStore, "\\", row.key);
    return row;
}

}  // namespace

std::vector<SettingRow> settingRows(const HostFacts& facts) {
    const StoreImage& image = facts.image;
    std::vector<SettingRow> rows;
    for (const setting::Text* text : setting::kHostTexts) {
        rows.push_back(withHostDefault(*text, facts, rowOf(*text, image)));
    }
    for (const setting::Number* number : setting::kHostNumbers) {
        rows.push_back(rowOf(*number, image));
    }
    for (const setting::Number* number : setting::kPrinterNumbers) {
        rows.push_back(ofPrinters(rowOf(*number, image)));
    }
    for (const setting::Text* text : setting::kPrinterTexts) {
        rows.push_back(ofPrinters(rowOf(*text, image)));
    }
    std::stable_sort(rows.begin(), rows.end(), [](const SettingRow& left, const SettingRow& right) {
        return left.key < right.key;
    });
    return rows;
}

std::vector<std::string> settingNames(const std::string& key) {
    std::vector<std::string> names;
    for (const SettingRow& row : settingRows({})) {
        if (equalsIgnoringCase(row.key, withoutBackslash(key))) names.push_back(row.name);
    }
    return names;
}

}  // namespace jsw::ctl
