#include "window/ui/Colours.h"
#include "window/view/AccessKeys.h"
#include "window/view/StatusText.h"
#include "window/view/WindowContent.h"
#include "window/view/WindowPlace.h"

#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <cstdint>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace jsw::view;

const Strings& english() {
    return Language::choose(0x809).strings();
}

const Strings& german() {
    return Language::choose(0xC07).strings();
}

TEST(Strings, AreChosenByLanguageAndElseEnglish) {
    EXPECT_STREQ(Language::choose(0x407).code(), "de");
    EXPECT_STREQ(Language::choose(0x409).code(), "en");
    EXPECT_STREQ(Language::choose(0x411).code(), "en");
    EXPECT_STREQ(Language::choose(0).code(), "en");
}

/** The letter after "&", in lower case, or 0. */
char accessKey(const char* label) {
    const std::string text = label;
    const auto mark = text.find('&');
    return mark == std::string::npos
               ? '\0'
               : static_cast<char>(std::tolower(static_cast<unsigned char>(text[mark + 1])));
}

TEST(Strings, GiveEveryControlAnAccessKeyOfItsOwn) {
    for (const Language* language = Language::first(); language; language = language->next()) {
        const Strings& strings = language->strings();
        const auto areDistinct = [&](std::initializer_list<const char*> others) {
            std::set<char> keys;
            const char* const always[] = {strings.previous, strings.current, strings.next,
                                          strings.inkStatus};
            for (const char* label : always) keys.insert(accessKey(label));
            for (const char* label : others) keys.insert(accessKey(label));
            return keys.size() == std::size(always) + others.size() && !keys.contains('\0');
        };
        EXPECT_TRUE(
            areDistinct({strings.cancel, strings.updateAutomatically, strings.specialMessages}))
            << language->code();
        EXPECT_TRUE(areDistinct({strings.cancelYes, strings.cancelNo})) << language->code();
        EXPECT_TRUE(areDistinct({strings.closeYes, strings.closeNo})) << language->code();
    }
}

TEST(AccessKeys, AreTheWindowsFirstAndNobodyElsesTwice) {
    const auto keysFor = [](std::vector<std::string> labels) {
        Page page;
        for (std::string& label : labels) page.buttons.push_back({std::move(label), "NEXT", 0});
        const std::size_t clashes = giveAccessKeys(page, english()).size();
        std::vector<std::string> given;
        for (const ContentButton& button : page.buttons) given.push_back(button.label);
        return std::pair(given, clashes);
    };
    using Labels = std::vector<std::string>;
    EXPECT_EQ(keysFor({"&Order", "Plain", "&Web && more"}),
              std::pair(Labels{"&Order", "Plain", "&Web && more"}, std::size_t{0}));
    EXPECT_EQ(keysFor({"&Next tip", "T&ext", "&Pick && ink"}),
              std::pair(Labels{"N&ext tip", "&Text", "Pick && ink"}, std::size_t{3}));
}

TEST(Strings, GiveAReasonForEveryProblem) {
    for (const Language* language = Language::first(); language; language = language->next()) {
        std::set<std::string> reasons;
        for (const char* reason : language->strings().problems)
            reasons.insert(reason ? reason : "");
        EXPECT_EQ(reasons.size(), kProblems) << language->code();
    }
}

TEST(Strings, PutValuesInTheirPlaces) {
    EXPECT_EQ(jsw::ui::fillIn("{1} of {0}{2}{", {"b", "a"}), "a of b{2}{");
    EXPECT_EQ(jsw::ui::grouped(1234, ","), "1234");
    EXPECT_EQ(jsw::ui::grouped(12345, "."), "12.345");
    EXPECT_EQ(jsw::ui::grouped(1234567, ","), "1,234,567");
    EXPECT_EQ(jsw::ui::grouped(-123456, ","), "-123,456");
}

TEST(StatusText, ProgressNamesPagesAndCopies) {
    struct Row {
        Progress progress;
        const char* text;
        std::optional<int> permille;
        std::optional<std::int64_t> left;
    };
    constexpr std::int64_t kHuge = std::numeric_limits<std::int32_t>::max();
    constexpr auto kNone = std::nullopt;
    const Row rows[] = {
        {{2, 3, 1, 1, true, {}}, "Page 2 of 3", 666, 1},
        {{2, 3, 1, 2, true, {}}, "Page 2 of 3, copy 1 of 2", 333, 4},
        {{3, 3, 2, 2, true, {}}, "Page 3 of 3, copy 2 of 2", 1000, 0},
        {{0, 3, 1, 1, true, {}}, "Starting: 3 pages", 0, 3},
        {{0, 1, 1, 1, true, {}}, "Starting: 1 page", 0, 1},
        {{2, 3, 1, 0, true, {}}, "Page 2 of 3", 666, 1},
        {{2, 3, 0, 2, true, {}}, "Page 2 of 3", 333, 4},
        {{5, 3, 4, 2, true, {}}, "Page 5, copy 4", 1000, 0},
        {{12345, 23456, 1, 1, true, {}}, "Page 12,345 of 23,456", 526, 11111},
        {{kHuge, kHuge, kHuge, kHuge, true, {}},
         "Page 2,147,483,647 of 2,147,483,647, copy 2,147,483,647 of 2,147,483,647",
         1000,
         0},
        {{4294967295, 3, 4294967295, 2, true, {}},
         "Page 4,294,967,295, copy 4,294,967,295",
         1000,
         0},
        {{0, -1, 1, 1, true, {}}, "Printing", kNone, kNone},
        {{2, -2, 1, 1, true, {}}, "Printing page 2", kNone, kNone},
        {{2, 0, 1, 1, true, {}}, "Printing page 2", kNone, kNone},
        {{0, 0, 1, 1, true, {}}, "Nothing to print: the document has no pages", kNone, 0},
        {{2, 3, 1, 1, false, {}}, "Printing", kNone, kNone},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(progressText(row.progress, english()), row.text);
        EXPECT_EQ(progressPermille(row.progress), row.permille) << row.text;
        EXPECT_EQ(pagesLeft(row.progress), row.left) << row.text;
    }
    EXPECT_EQ(progressText({12345, 23456, 2, 3, true, {}}, german()),
              "Seite 12.345 von 23.456, Exemplar 2 von 3");
}

TEST(StatusText, TimeIsReadable) {
    const std::pair<std::optional<std::uint32_t>, const char*> rows[] = {
        {std::nullopt, "Time remaining not known"},
        {0U, "Finishing"},
        {59U, "About 59 s remaining"},
        {60U, "About 1 min 0 s remaining"},
        {3599U, "About 59 min 59 s remaining"},
        {3600U, "About 1 h 0 min remaining"},
        {360000U, "About 100 h 0 min remaining"},
        {0xFFFFFFFFU, "Time remaining not known"},
    };
    for (const auto& [seconds, text] : rows) {
        Progress progress;
        progress.secondsRemaining = seconds;
        EXPECT_EQ(timeText(progress, english()), text);
    }
    // A driver without an estimate passes 0 while pages remain.
    EXPECT_EQ(timeText({2, 3, 1, 1, true, 0U}, english()), "Time remaining not known");
    EXPECT_EQ(timeText({3, 3, 1, 1, true, 0U}, german()), "Gleich fertig");
}

TEST(StatusText, InkIsKnownOrSaidNotToBe) {
    struct Row {
        std::array<std::int32_t, 10> percents;
        const char* summary;
    };
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    const Row rows[] = {
        {{90, 21, -1, -1, -1, -1, -1, -1, -1, -1}, "Cartridge 1: 90%, Cartridge 2: 21%"},
        {{0, 100, -1, -1, -1, -1, -1, -1, -1, -1}, "Cartridge 1: 0% low, Cartridge 2: 100%"},
        {{50, 101, -1, -1, -1, -1, -1, -1, -1, 200}, "Cartridge 1: 50%, Cartridge 2: not known"},
        {{-1, 20, -1, 88, -1, -1, -1, -1, -1, -1},
         "Cartridge 1: not known, Cartridge 2: 20% low, Cartridge 3: not known, Cartridge 4: 88%"},
        {{-1, -1, -1, kLeast, 101, -1, -1, -1, -1, -1}, "Ink levels are not known"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(inkSummary(shownInkSlots(row.percents), english()), row.summary);
    }
    const auto reserve = shownInkSlots(std::array<std::int32_t, 2>{5, 60}, {false, true});
    EXPECT_EQ(inkSummary(reserve, german()),
              "Patrone 1: 5\xC2\xA0% niedrig, Patrone 2 (Reserve): 60\xC2\xA0%");
}

TEST(WindowContent, TellsInkNotToldYetFromInkNotKnown) {
    JobData data;
    EXPECT_EQ(describeJob(data, Question::none, english()).inkSentence,
              "Reading the ink levels\xE2\x80\xA6");
    data.inkTold = true;
    EXPECT_EQ(describeJob(data, Question::none, english()).inkSentence, "Ink levels are not known");
}

TEST(WindowContent, AsksOnlyWhenSomethingWouldBeLost) {
    struct Row {
        Progress progress;
        bool needsAsking;
        const char* question;
    };
    const Row rows[] = {
        {{2, 3, 1, 1, true, {}}, true, "1 page has not been printed. Cancel printing?"},
        {{2, 3, 1, 1000, true, {}}, true, "2998 pages have not been printed. Cancel printing?"},
        {{2, -1, 1, 1, true, {}}, true, "Pages may be left. Cancel printing?"},
        {{3, 3, 1, 1, true, {}}, false, "0 pages have not been printed. Cancel printing?"},
    };
    for (const Row& row : rows) {
        JobData data;
        data.progress = row.progress;
        EXPECT_EQ(cancellingNeedsAsking(data), row.needsAsking) << row.question;
        EXPECT_EQ(closingNeedsExplaining(data), row.needsAsking) << row.question;
        EXPECT_EQ(describeJob(data, Question::cancel, english()).questionText, row.question);
        data.closingExplained = true;
        EXPECT_FALSE(closingNeedsExplaining(data)) << row.question;
    }
    JobData cancelled;
    cancelled.cancelling = true;
    EXPECT_FALSE(closingNeedsExplaining(cancelled));
    EXPECT_EQ(describeJob(cancelled, Question::none, german()).progress,
              "Wird abgebrochen\xE2\x80\xA6");
}

TEST(StatusText, SimulatedPrinterIsRecognisedInAnyCase) {
    EXPECT_TRUE(isSimulatedPrinter("SimulatedPrinter"));
    EXPECT_TRUE(isSimulatedPrinter("SIMULATEDprinter"));
    for (const char* name : {"", "SimulatedPrinter ", "SimulatedPrinte", "My SimulatedPrinter"}) {
        EXPECT_FALSE(isSimulatedPrinter(name)) << name;
    }
}

TEST(WindowPlace, StaysOnTheDesktop) {
    const Box desktop{-1000, 0, 1000, 700};
    struct Row {
        Place wanted;
        Place expected;
    };
    const Row rows[] = {
        {{-900, 50}, {-900, 50}},
        {{-5000, -5000}, {-1000, 0}},
        {{5000, 5000}, {400, 200}},
        {{-1'000'000, 1'000'000}, {-1000, 200}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(clampToDesktop(row.wanted, {600, 500}, desktop), row.expected);
    }
    EXPECT_EQ(clampToDesktop({10, 10}, {3000, 900}, desktop), (Place{-1000, 0}));
    EXPECT_EQ(centred({600, 500}, desktop), (Place{-300, 100}));
    EXPECT_EQ(centred({3000, 900}, desktop), (Place{-1000, 0}));
}

TEST(WindowPlace, ComesBackFromItsSavedValues) {
    const SavedPlace place{-12, 34, 640, 1'000'000};
    SavedPlace copy;
    for (const auto& [name, value] : place.values()) copy.take(name, value);
    EXPECT_EQ(copy, place);
    copy.take("WindowColour", "5");
    EXPECT_EQ(copy, place);
    for (const char* text : {"", "-", "1 ", " 1", "0x10", "1.5", "1000001", "99999999999"}) {
        copy.take("WindowX", text);
        EXPECT_EQ(copy.x, std::nullopt) << text;
    }
}

TEST(Colours, TextCanBeReadOnEveryGround) {
    constexpr jsw::ui::Colour kBlack{0, 0, 0};
    constexpr jsw::ui::Colour kWhite{255, 255, 255};
    const jsw::ui::Palette highContrast = jsw::ui::highContrastPalette(
        {kBlack, kWhite, {0, 255, 255}, kBlack, kWhite, {0, 255, 0}, {255, 255, 0}});
    for (const jsw::ui::Palette* palette :
         {&jsw::ui::lightPalette(), &jsw::ui::darkPalette(), &highContrast}) {
        for (const jsw::ui::Colour ground : {palette->ground, palette->card, palette->footer}) {
            for (const jsw::ui::Colour text :
                 {palette->text, palette->faintText, palette->warning, palette->accent}) {
                EXPECT_GE(jsw::ui::contrast(text, ground), 4.5);
            }
        }
        EXPECT_GE(jsw::ui::contrast(palette->badgeText, palette->badge), 4.5);
        EXPECT_GE(jsw::ui::contrast(palette->text, palette->button), 4.5);
        for (const jsw::ui::Colour bar : {palette->ink, palette->warning, palette->accent}) {
            EXPECT_GE(jsw::ui::contrast(bar, palette->track), 3.0);
        }
    }
}

}  // namespace
