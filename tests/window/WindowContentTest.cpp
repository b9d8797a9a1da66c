#include "common/Language.h"
#include "window/ui/Colours.h"
#include "window/view/AccessKeys.h"
#include "window/view/StatusText.h"
#include "window/view/WindowContent.h"
#include "window/view/WindowPlace.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace jsw::window;

const WindowTexts& english() {
    static const WindowTexts texts;
    return texts;
}

const WindowTexts& german() {
    static const auto texts = jsw::common::translated<WindowTexts>({"de-AT", "de"});
    return texts;
}

TEST(Languages, AMalformedFileChangesNothingAndSaysWhy) {
    using namespace jsw::common;
    struct Row {
        std::string file;
        const char* problem;
    };
    const Row rows[] = {
        {"[window]\nnext", "line 2 has no \"=\""},
        {"next = a", "line 1 comes before the first [section]"},
        {"[window]\nnext =\n", "line 2 has no text"},
        {"[window]\r\nnext = " + std::string(601, 'x'), "line 2 is too long"},
        {std::string("[window]\nnext = \0", 17), "line 2 is not text"},
        {std::string(65537, '#'), "the file is too large"},
        {"[window]\npageOf = {1}/{2}\nnext = a", "pageOf has {2}, and English does not"},
        {"", ""},
        {"\xEF\xBB\xBF# x\r\n [other]\r\nnext = a\r\n[window]\r\nnew = a\r\n", ""},
    };
    for (const Row& row : rows) {
        WindowTexts texts;
        LanguageFile file = parseLanguageFile(row.file);
        if (file.problem.empty()) file.problem = takeTexts(file, "window", texts.byName());
        EXPECT_EQ(file.problem, row.problem);
        EXPECT_EQ(texts.next, english().next) << row.problem;
    }
    WindowTexts texts;
    EXPECT_EQ(
        takeTexts(parseLanguageFile("[window]\npageOf = {1}/{0}\n"), "window", texts.byName()), "");
    EXPECT_EQ(progressText({2, 3, 1, 1, true, {}}, texts), "3/2");
    EXPECT_EQ(translated<WindowTexts>({"xx", "..\\x"}).next, english().next);
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
    // Letters of other alphabets are keys, too.
    EXPECT_EQ(keysFor({"&\xD0\x94\xD0\x90", "&\xD0\x94\xD0\x90"}).first[1], "\xD0\x94&\xD0\x90");
}

TEST(Phrase, PutsValuesInTheirPlaces) {
    EXPECT_EQ(jsw::common::fillIn("{1} of {0}{2}{", {"b", "a"}), "a of b{2}{");
    EXPECT_EQ(jsw::common::grouped(1234, ","), "1234");
    EXPECT_EQ(jsw::common::grouped(12345, "."), "12.345");
    EXPECT_EQ(jsw::common::grouped(1234567, ","), "1,234,567");
    EXPECT_EQ(jsw::common::grouped(-123456, ","), "-123,456");
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
    for (const auto& row : rows) {
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
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    const std::pair<std::array<std::int32_t, 10>, const char*> rows[] = {
        {{90, 21, -1, -1, -1, -1, -1, -1, -1, -1}, "Cartridge 1: 90%, Cartridge 2: 21%"},
        {{0, 100, -1, -1, -1, -1, -1, -1, -1, -1}, "Cartridge 1: 0% low, Cartridge 2: 100%"},
        {{50, 101, -1, -1, -1, -1, -1, -1, -1, 200}, "Cartridge 1: 50%, Cartridge 2: not known"},
        {{-1, 20, -1, 88, -1, -1, -1, -1, -1, -1},
         "Cartridge 1: not known, Cartridge 2: 20% low, Cartridge 3: not known, Cartridge 4: 88%"},
        {{-1, -1, -1, kLeast, 101, -1, -1, -1, -1, -1}, "Ink levels are not known"},
    };
    for (const auto& [percents, summary] : rows) {
        EXPECT_EQ(inkSummary(shownInkSlots(percents), english()), summary);
    }
    const auto reserve = shownInkSlots(std::array<std::int32_t, 2>{5, 60}, {false, true});
    EXPECT_EQ(inkSummary(reserve, german()),
              "Patrone 1: 5\xC2\xA0% niedrig, Patrone 2 (Reserve): 60\xC2\xA0%");
}

TEST(WindowContent, NamesCartridgesAsWellAsIsKnown) {
    const auto describe = [](const std::string& file) {
        JobData data;
        data.inkTold = true;
        data.inkPercents = {90, 80, 70, -1, -1, -1, -1, -1, -1, -1};
        data.partNumbers = {36, 37};
        data.reserveMode = {true, false};
        return describeJob(data, Question::none, english(),
                           Cartridges(jsw::common::parseLanguageFile(file)));
    };
    const char* const kUnnamed =
        "Cartridge 1, no. 36 (reserve): 90%, Cartridge 2, no. 37: 80%, "
        "Cartridge 3: 70%";
    EXPECT_EQ(describe("").inkSentence, kUnnamed);
    const WindowContent named =
        describe("[slots]\n1 = Black\n3 = Photo\n[parts]\n36 = Black 36 | 2B2b2B\n37 = | 0000FF");
    EXPECT_EQ(named.inkSentence, "Black 36 (reserve): 90%, Cartridge 2, no. 37: 80%, Photo: 70%");
    EXPECT_EQ(named.ink[0].colour, (jsw::window::Colour{0x2B, 0x2B, 0x2B}));
    EXPECT_EQ(named.ink[1].colour, (jsw::window::Colour{0, 0, 255}));
    EXPECT_EQ(named.ink[2].colour, std::nullopt);
    EXPECT_EQ(describe("[slots]\n1 = Black | blue\n3 = Photo").inkSentence, kUnnamed);
    EXPECT_EQ(describe("1 = Black").inkSentence, kUnnamed);
}

TEST(WindowContent, TellsInkNotToldYetFromInkNotKnown) {
    JobData data;
    EXPECT_EQ(describeJob(data, Question::none, english()).inkSentence,
              "Reading the ink levels\xE2\x80\xA6");
    data.inkTold = true;
    EXPECT_EQ(describeJob(data, Question::none, english()).inkSentence, "Ink levels are not known");
}

TEST(WindowContent, AsksOnlyWhenSomethingWouldBeLost) {
    const struct {
        Progress progress;
        bool needsAsking;
        const char* question;
    } rows[] = {
        {{2, 3, 1, 1, true, {}}, true, "1 page has not been printed. Cancel printing?"},
        {{2, 3, 1, 1000, true, {}}, true, "2998 pages have not been printed. Cancel printing?"},
        {{2, -1, 1, 1, true, {}}, true, "Pages may be left. Cancel printing?"},
        {{3, 3, 1, 1, true, {}}, false, "0 pages have not been printed. Cancel printing?"},
    };
    for (const auto& row : rows) {
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
    const std::pair<Place, Place> rows[] = {
        {{-900, 50}, {-900, 50}},
        {{-5000, -5000}, {-1000, 0}},
        {{5000, 5000}, {400, 200}},
        {{-1'000'000, 1'000'000}, {-1000, 200}},
    };
    for (const auto& [wanted, expected] : rows) {
        EXPECT_EQ(clampToDesktop(wanted, {600, 500}, desktop), expected);
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
    constexpr jsw::window::Colour kBlack{0, 0, 0};
    constexpr jsw::window::Colour kWhite{255, 255, 255};
    const jsw::window::Palette highContrast = jsw::window::highContrastPalette(
        {kBlack, kWhite, {0, 255, 255}, kBlack, kWhite, {0, 255, 0}, {255, 255, 0}});
    for (const jsw::window::Palette* palette :
         {&jsw::window::lightPalette(), &jsw::window::darkPalette(), &highContrast}) {
        for (const jsw::window::Colour ground : {palette->ground, palette->card, palette->footer}) {
            for (const jsw::window::Colour text :
                 {palette->text, palette->faintText, palette->warning, palette->accent}) {
                EXPECT_GE(jsw::window::contrast(text, ground), 4.5);
            }
        }
        EXPECT_GE(jsw::window::contrast(palette->badgeText, palette->badge), 4.5);
        EXPECT_GE(jsw::window::contrast(palette->text, palette->button), 4.5);
        for (const jsw::window::Colour bar : {palette->ink, palette->warning, palette->accent}) {
            EXPECT_GE(jsw::window::contrast(bar, palette->track), 3.0);
        }
    }
}

}  // namespace
