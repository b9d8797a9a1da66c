#include "tools/jswctl/check/GatherFirstRun.h"

#include "PublicLib/ini/IniText.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Paths.h"
#include "jsw/FirstRun.h"
#include "jsw/settings/OfnSettings.h"
#include "jsw/settings/Settings.h"
#include "tools/jswctl/check/SettingLists.h"
#include "tools/jswctl/store/Access.h"

#include <windows.h>

namespace jsw::ctl {

namespace {

Source sourceOf(Read outcome) {
    switch (outcome) {
        case Read::found:
            return Source::stored;
        case Read::missing:
            return Source::missing;
        case Read::wrongType:
            return Source::wrongType;
        case Read::refused:
            break;
    }
    return Source::unreadable;
}

/// Settings as stored. Read without defaults, which would be written.
template <class Texts, class Numbers>
void readStore(const BasicSettings& settings, const Texts& texts, const Numbers& numbers,
               StoreImage& image) {
    for (const setting::Text* text : texts) {
        StoredValue value;
        value.source = sourceOf(settings.read(*text, value.text));
        image.put(text->key, text->name, value);
    }
    for (const setting::Number* number : numbers) {
        StoredValue value;
        value.source = sourceOf(settings.read(*number, value.number));
        image.put(number->key, number->name, value);
    }
}

bool isTextSetting(const std::string& key, const std::string& name) {
    for (const setting::Text* text : setting::kHostTexts) {
        if (equalsIgnoringCase(name, text->name) &&
            equalsIgnoringCase(joinPath(key, ""), joinPath(text->key, ""))) {
            return true;
        }
    }
    return false;
}

/// The values that the file would store, for the settings that the library knows.
void readFromFile(const HostFacts& facts, StoreImage& image) {
    const std::string store = facts.storePath + "\\";
    for (const FileEntry& entry : facts.firstRun.file.entries) {
        if (!equalsIgnoringCase(entry.section.substr(0, store.size()), store)) continue;
        const std::string key = entry.section.substr(store.size());
        const IniTypedValue typed = splitTypedValue(entry.value);
        if (typed.type == IniValueType::unknown) continue;
        const bool isText = typed.type == IniValueType::string;
        StoredValue value;
        value.source =
            isText == isTextSetting(key, entry.name) ? Source::inFile : Source::wrongType;
        value.text = typed.text;
        value.number = isText ? 0 : leadingNumber(typed.text);
        image.put(key, entry.name, value);
    }
}

}  // namespace

void gatherFirstRun(HostFacts& facts) {
    FirstRunFacts& run = facts.firstRun;
    run.storeOpens = Settings().isValid();
    run.storeError = run.storeOpens ? 0 : GetLastError();
    run.isPending = run.storeOpens && isFirstRunPending();
    if (run.storeOpens) run.closedKeys = closedKeys(facts.storePath);
    run.file = readSettingsFile(settingsFilePath());
    if (run.storeOpens) {
        readStore(Settings(), setting::kHostTexts, setting::kHostNumbers, facts.image);
    } else {
        readFromFile(facts, facts.image);
    }
    readStore(OfnSettings(""), setting::kPrinterTexts, setting::kPrinterNumbers, facts.image);
}

}  // namespace jsw::ctl
