#include "samples/view/BillboardContent.h"
#include "samples/view/BillboardFile.h"
#include "samples/view/StatusText.h"
#include "samples/view/WindowPlace.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <ios>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace {

using namespace sampleview;

TEST(BillboardContent, ReadsAWholePage) {
    const auto parsed = parseBillboard(
        "\xEF\xBB\xBF# comment without an equals sign\r\n"
        "TITLE =  Low ink = soon empty \r\n"
        "theme=AMBER\r\n"
        "picture = Drop\r\n"
        "later = ignored\r\n"
        "button = Order | Launch_Url | 7\r\n"
        "button = Levels|INK_STATUS|0\r\n"
        "\r\n\r\n"
        "First line\r\n  second line.\r\n"
        "- an item\r\n  that goes on\r\n- another = one\r\n"
        " \t\r\n"
        "# no comment here");
    ASSERT_EQ(parsed.problem, "");
    const Page& page = parsed.page;
    EXPECT_EQ(page.title, "Low ink = soon empty");
    EXPECT_EQ(page.theme, Theme::amber);
    EXPECT_EQ(page.picture, Picture::drop);
    ASSERT_EQ(page.buttons.size(), 2U);
    EXPECT_EQ(page.buttons[0].label, "Order");
    EXPECT_EQ(page.buttons[0].action, "Launch_Url");
    EXPECT_EQ(page.buttons[0].actionId, 7);
    EXPECT_EQ(page.buttons[1].action, "INK_STATUS");
    EXPECT_EQ(page.paragraphs,
              (std::vector<std::string>{"First line second line.", "- an item that goes on",
                                        "- another = one", "# no comment here"}));
}

TEST(BillboardContent, RefusesWhatIsMalformed) {
    const std::string head = "title = T\n";
    std::string paragraphs = head;
    for (std::size_t i = 0; i <= kMaxParagraphs; ++i) paragraphs += "\nparagraph\n";
    struct Row {
        const char* what;
        std::string text;
        const char* problem;
    };
    const Row rows[] = {
        {"empty file", "", "the file has no title"},
        {"no title", "theme = blue\n\ntext\n", "the file has no title"},
        {"blank title", "title =  \n\ntext\n", "the file has no title"},
        {"title only in the text", "\ntitle = T\n", "the file has no title"},
        {"zero byte", head + std::string(1, '\0'), "the file is not a text file"},
        {"bitmap as page", "BM\x06\x01", "the file is not a text file"},
        {"line without equals sign", head + "text at once\n",
         "a line before the first empty line has no \"=\""},
        {"title too long", "title = " + std::string(kMaxTitleLength + 1, 'x'),
         "the title is too long"},
        {"paragraph too long", head + "\n" + std::string(kMaxParagraphLength + 1, 'x'),
         "a paragraph is too long"},
        {"paragraph too long in many lines",
         head + "\n" +
             [] {
                 std::string lines;
                 while (lines.size() <= kMaxParagraphLength) lines += "some words\n";
                 return lines;
             }(),
         "a paragraph is too long"},
        {"too many paragraphs", paragraphs, "there are too many paragraphs"},
        {"too large", head + "\n" + std::string(kMaxFileSize, ' '), "the file is too large"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(parseBillboard(row.text).problem, row.problem) << row.what;
    }
}

TEST(BillboardContent, RefusesBadButtons) {
    const std::string rows[] = {"",
                                "Label",
                                "Label | NEXT",
                                "Label | NEXT | ",
                                "Label | NEXT | one",
                                "Label | NEXT | 1x",
                                "Label | NEXT | -1",
                                "Label | NEXT | 100",
                                "Label | NEXT | 99999999999999999999",
                                "Label | NEXT | 1 | 2",
                                " | NEXT | 0",
                                "Label |  | 0",
                                "Label | NEXT;CANCEL | 0",
                                std::string(kMaxLabelLength + 1, 'x') + " | NEXT | 0"};
    for (const std::string& row : rows) {
        EXPECT_EQ(parseBillboard("title = T\nbutton = " + row + "\n").problem,
                  "a button is not of the form \"Label | ACTION | number\"")
            << row;
    }
    std::string many = "title = T\n";
    for (std::size_t i = 0; i < kMaxButtons; ++i) many += "button = L | NEXT | 99\n";
    EXPECT_EQ(parseBillboard(many).page.buttons.size(), kMaxButtons);
    EXPECT_EQ(parseBillboard(many + "button = L | NEXT | 0\n").problem,
              "there are too many buttons");
}

TEST(BillboardContent, PicturesStayInTheirFolder) {
    struct Row {
        const char* value;
        Picture picture;
        const char* file;
    };
    const Row rows[] = {
        {"printer", Picture::printer, ""},
        {"INK", Picture::ink, ""},
        {"photo.bmp", Picture::file, "photo.bmp"},
        {"Photo.BMP", Picture::file, "Photo.BMP"},
        {".bmp", Picture::none, ""},
        {"photo.png", Picture::none, ""},
        {"..\\photo.bmp", Picture::none, ""},
        {"sub/photo.bmp", Picture::none, ""},
        {"c:photo.bmp", Picture::none, ""},
        {"", Picture::none, ""},
    };
    for (const Row& row : rows) {
        const auto parsed = parseBillboard(std::string("title = T\npicture = ") + row.value + "\n");
        EXPECT_EQ(parsed.problem, "") << row.value;
        EXPECT_EQ(parsed.page.picture, row.picture) << row.value;
        EXPECT_EQ(parsed.page.pictureFile, row.file) << row.value;
    }
}

/** The start of a bitmap file of this size. */
std::string bitmapHeader(std::int32_t width, std::int32_t height) {
    std::string header = "BM" + std::string(16, '\0');
    for (const std::int32_t side : {width, height}) {
        for (int shift = 0; shift < 32; shift += 8) {
            header += static_cast<char>(static_cast<std::uint32_t>(side) >> shift & 0xFF);
        }
    }
    return header;
}

TEST(BillboardContent, PictureHeadersAreBounded) {
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    EXPECT_TRUE(isPictureHeaderAcceptable(bitmapHeader(1, 1)));
    EXPECT_TRUE(isPictureHeaderAcceptable(bitmapHeader(2000, -2000)));
    for (const auto& [width, height] :
         {std::pair{0, 1}, std::pair{1, 0}, std::pair{-1, 1}, std::pair{2001, 1},
          std::pair{1, 2001}, std::pair{1, -2001}, std::pair{kMost, kMost}, std::pair{1, kLeast}}) {
        EXPECT_FALSE(isPictureHeaderAcceptable(bitmapHeader(width, height)))
            << width << " x " << height;
    }
    EXPECT_FALSE(isPictureHeaderAcceptable(bitmapHeader(1, 1).substr(0, 25)));
    EXPECT_FALSE(isPictureHeaderAcceptable("PK" + bitmapHeader(1, 1).substr(2)));
    EXPECT_FALSE(isPictureHeaderAcceptable(""));
}

TEST(BillboardFile, AlwaysYieldsAPage) {
    EXPECT_EQ(loadBillboard("", "").title, "Your document is being printed");
    const std::string unshowable = "This page cannot be shown";
    EXPECT_EQ(loadBillboard("no such folder", "page.jbb").title, unshowable);
    EXPECT_EQ(loadBillboard(std::string(400, 'x'), "page.jbb").title, unshowable);
    EXPECT_EQ(loadBillboard("..", "..").title, unshowable);
}

TEST(StatusText, ProgressNamesPagesAndCopies) {
    struct Row {
        Progress progress;
        const char* text;
        std::optional<int> permille;
    };
    constexpr std::int64_t kHuge = std::numeric_limits<std::int32_t>::max();
    const Row rows[] = {
        {{2, 3, 1, 1, true, {}}, "Page 2 of 3 - copy 1 of 1", 666},
        {{3, 3, 2, 2, true, {}}, "Page 3 of 3 - copy 2 of 2", 1000},
        {{1, 3, 2, 2, true, {}}, "Page 1 of 3 - copy 2 of 2", 666},
        {{0, 3, 1, 1, true, {}}, "Starting - 3 pages", 0},
        {{0, 1, 1, 1, true, {}}, "Starting - 1 page", 0},
        {{2, 3, 1, 0, true, {}}, "Page 2 of 3", 666},
        {{2, 3, 0, 2, true, {}}, "Page 2 of 3", 333},
        {{5, 3, 4, 2, true, {}}, "Page 5 - copy 4", 1000},
        {{kHuge, kHuge, kHuge, kHuge, true, {}},
         "Page 2147483647 of 2147483647 - copy 2147483647 of 2147483647",
         1000},
        {{4294967295, 3, 4294967295, 2, true, {}}, "Page 4294967295 - copy 4294967295", 1000},
        {{2, -1, 1, 1, true, {}}, "Printing", std::nullopt},
        {{2, 0, 1, 1, true, {}}, "Printing", std::nullopt},
        {{2, 3, 1, 1, false, {}}, "Printing", std::nullopt},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(progressText(row.progress), row.text);
        EXPECT_EQ(progressPermille(row.progress), row.permille) << row.text;
    }
}

TEST(StatusText, TimeIsReadable) {
    struct Row {
        std::optional<std::uint32_t> seconds;
        const char* text;
    };
    const Row rows[] = {
        {std::nullopt, "Time remaining not known"},
        {0U, "Finishing"},
        {59U, "About 59 s remaining"},
        {60U, "About 1 min 0 s remaining"},
        {3599U, "About 59 min 59 s remaining"},
        {3600U, "About 1 h 0 min remaining"},
        {360000U, "About 100 h 0 min remaining"},
        {0xFFFFFFFFU, "Time remaining not known"},
    };
    for (const Row& row : rows) {
        Progress progress;
        progress.secondsRemaining = row.seconds;
        EXPECT_EQ(timeText(progress), row.text);
    }
}

TEST(StatusText, InkIsKnownOrSaidNotToBe) {
    struct Row {
        std::array<std::int32_t, 10> percents;
        const char* summary;
    };
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    const Row rows[] = {
        {{90, 10, -1, -1, -1, -1, -1, -1, -1, -1}, "Cartridge 1: 90 %, Cartridge 2: 10 %"},
        {{0, 100, -1, -1, -1, -1, -1, -1, -1, -1}, "Cartridge 1: 0 %, Cartridge 2: 100 %"},
        {{50, 101, -1, -1, -1, -1, -1, -1, -1, 200}, "Cartridge 1: 50 %, Cartridge 2: not known"},
        {{-1, 7, -1, 8, -1, -1, -1, -1, -1, -1},
         "Cartridge 1: not known, Cartridge 2: 7 %, Cartridge 3: not known, Cartridge 4: 8 %"},
        {{-1, -1, -1, kLeast, 101, -1, -1, -1, -1, -1}, "Ink levels are not known"},
    };
    for (const Row& row : rows) EXPECT_EQ(inkSummary(shownInkSlots(row.percents)), row.summary);
    EXPECT_EQ(inkSummary(shownInkSlots({})), "Ink levels are not known");
}

TEST(StatusText, SimulatedPrinterIsRecognisedInAnyCase) {
    EXPECT_TRUE(isSimulatedPrinter("SimulatedPrinter"));
    EXPECT_TRUE(isSimulatedPrinter("SIMULATEDprinter"));
    for (const char* name : {"", "SimulatedPrinter ", "SimulatedPrinte", "My SimulatedPrinter"}) {
        EXPECT_FALSE(isSimulatedPrinter(name)) << name;
    }
}

TEST(WindowPlace, StaysOnTheDesktop) {
    const Area desktop{{-1000, 0}, 2000, 700};
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
    for (const Row& row : rows)
        EXPECT_EQ(clampToDesktop(row.wanted, 600, 500, desktop), row.expected);
    EXPECT_EQ(clampToDesktop({10, 10}, 3000, 900, desktop), (Place{-1000, 0}));
    EXPECT_EQ(centred(600, 500, desktop), (Place{-300, 100}));
    EXPECT_EQ(centred(3000, 900, desktop), (Place{-1000, 0}));
}

TEST(WindowPlace, CoordinatesOfAnotherShapeAreIgnored) {
    EXPECT_EQ(parseCoordinate("-12"), -12);
    EXPECT_EQ(parseCoordinate("1000000"), 1'000'000);
    for (const char* text : {"", "-", "1 ", " 1", "0x10", "1.5", "1000001", "99999999999"}) {
        EXPECT_EQ(parseCoordinate(text), std::nullopt) << text;
    }
}

}  // namespace
