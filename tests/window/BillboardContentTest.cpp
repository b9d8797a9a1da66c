#include "common/Language.h"
#include "tests/support/TempFolder.h"
#include "window/view/BillboardContent.h"
#include "window/view/BillboardFile.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ios>
#include <limits>
#include <string>
#include <utility>

namespace {

using namespace jsw::window;

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
    ASSERT_EQ(parsed.problem, Problem::none);
    const Page& page = parsed.page;
    EXPECT_EQ(page.title, "Low ink = soon empty");
    EXPECT_EQ(page.theme, Theme::amber);
    EXPECT_EQ(page.picture, Picture::drop);
    ASSERT_EQ(page.buttons.size(), 2U);
    EXPECT_EQ(page.buttons[0].label, "Order");
    EXPECT_EQ(page.buttons[0].action, "Launch_Url");
    EXPECT_EQ(page.buttons[0].actionId, 7);
    EXPECT_EQ(page.buttons[1].action, "INK_STATUS");
    std::vector<std::string> texts;
    for (const Paragraph& paragraph : page.paragraphs) {
        texts.push_back((paragraph.isItem ? "* " : "") + textOf(paragraph));
    }
    EXPECT_EQ(texts, (std::vector<std::string>{"First line second line.", "* an item that goes on",
                                               "* another = one", "# no comment here"}));
}

TEST(BillboardContent, RefusesWhatIsMalformed) {
    const std::string head = "title = T\n";
    std::string paragraphs = head;
    for (std::size_t i = 0; i <= kMaxParagraphs; ++i) paragraphs += "\nparagraph\n";
    std::string lines;
    while (lines.size() <= kMaxParagraphLength) lines += "some words\n";
    const std::pair<std::string, Problem> rows[] = {
        {"", Problem::noTitle},
        {"theme = blue\n\ntext\n", Problem::noTitle},
        {"title =  \n\ntext\n", Problem::noTitle},
        {"\ntitle = T\n", Problem::noTitle},
        {head + std::string(1, '\0'), Problem::notText},
        {"BM\x06\x01", Problem::notText},  // a bitmap
        {head + "text at once\n", Problem::noEqualsSign},
        {"title = " + std::string(kMaxTitleLength + 1, 'x'), Problem::titleTooLong},
        {head + "\n" + std::string(kMaxParagraphLength + 1, 'x'), Problem::paragraphTooLong},
        {head + "\n" + lines, Problem::paragraphTooLong},
        {paragraphs, Problem::tooManyParagraphs},
        {head + "\n" + std::string(kMaxFileSize, ' '), Problem::tooLarge},
    };
    for (const auto& [text, problem] : rows) {
        EXPECT_EQ(parseBillboard(text).problem, problem) << text.substr(0, 50);
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
        EXPECT_EQ(parseBillboard("title = T\nbutton = " + row + "\n").problem, Problem::badButton)
            << row;
    }
    std::string many = "title = T\n";
    for (std::size_t i = 0; i < kMaxButtons; ++i) many += "button = L | NEXT | 99\n";
    EXPECT_EQ(parseBillboard(many).page.buttons.size(), kMaxButtons);
    EXPECT_EQ(parseBillboard(many + "button = L | NEXT | 0\n").problem, Problem::tooManyButtons);
}

TEST(BillboardContent, LinksStandInTheText) {
    const auto parsed = parseBillboard(
        "title = T\n\nSee [our shop | LAUNCH_URL | 3] or [0] the [ shelf.\n- "
        "[Levels|INK_STATUS|0]\n");
    ASSERT_EQ(parsed.problem, Problem::none);
    const Page& page = parsed.page;
    ASSERT_EQ(page.links.size(), 2U);
    EXPECT_EQ(page.links[0].action, "LAUNCH_URL");
    EXPECT_EQ(page.links[0].actionId, 3);
    ASSERT_EQ(page.paragraphs.size(), 2U);
    EXPECT_EQ(page.paragraphs[0].pieces,
              (std::vector<Piece>{{"See ", {}}, {"our shop", 0U}, {" or [0] the [ shelf.", {}}}));
    EXPECT_EQ(page.paragraphs[1], (Paragraph{true, {{"Levels", 1U}}}));

    for (const char* bad : {"[a | b]", "[ | NEXT | 0]", "[a | NEXT | 100]", "[a | N;T | 0]"}) {
        EXPECT_EQ(parseBillboard(std::string("title = T\n\n") + bad).problem, Problem::badLink)
            << bad;
    }
    std::string many = "title = T\n\n";
    for (std::size_t i = 0; i <= kMaxLinks; ++i) many += "[a | NEXT | 0] ";
    EXPECT_EQ(parseBillboard(many).problem, Problem::tooManyLinks);
}

TEST(BillboardContent, PicturesStayInTheirFolder) {
    const struct {
        const char* value;
        Picture picture;
        const char* file;
    } rows[] = {
        {"printer", Picture::printer, ""},
        {"INK", Picture::ink, ""},
        {"photo.bmp", Picture::file, "photo.bmp"},
        {"Photo.BMP", Picture::file, "Photo.BMP"},
        {".bmp", Picture::none, ""},
        {"photo.png", Picture::file, "photo.png"},
        {"photo.gif", Picture::none, ""},
        {"..\\photo.bmp", Picture::none, ""},
        {"sub/photo.bmp", Picture::none, ""},
        {"c:photo.bmp", Picture::none, ""},
        {"", Picture::none, ""},
    };
    for (const auto& row : rows) {
        const auto parsed = parseBillboard(std::string("title = T\npicture = ") + row.value + "\n");
        EXPECT_EQ(parsed.problem, Problem::none) << row.value;
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
    const std::string png("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16);
    EXPECT_TRUE(isPictureHeaderAcceptable(png + std::string("\0\0\x07\xD0\0\0\0\x01", 8)));
    EXPECT_FALSE(isPictureHeaderAcceptable(png + std::string("\0\0\x07\xD1\0\0\0\x01", 8)));
    EXPECT_FALSE(isPictureHeaderAcceptable(png + std::string("\0\0\0\x01\xFF\xFF\xFF\xFF", 8)));
    EXPECT_FALSE(isPictureHeaderAcceptable(png + std::string(7, '\x01')));
    EXPECT_FALSE(isPictureHeaderAcceptable("PK" + bitmapHeader(1, 1).substr(2)));
    EXPECT_FALSE(isPictureHeaderAcceptable(""));
}

/** The page of a folder with these files. */
Page loadFrom(const std::string& folder, const char* name, std::vector<std::string> languages) {
    return loadBillboard(folder, name, languages, jsw::common::translated<WindowTexts>(languages));
}

TEST(BillboardFile, AlwaysYieldsAPage) {
    EXPECT_EQ(loadFrom("", "", {}).title, "Your document is being printed");
    for (const std::string& folder : {std::string("no such folder"), std::string(400, 'x')}) {
        EXPECT_EQ(loadFrom(folder, "page.jbb", {}).title, "This page cannot be shown");
    }
    EXPECT_EQ(loadFrom("..", "..", {}).title, "This page cannot be shown");

    const jsw::test::TempFolder folder;
    folder.write("Scripts\\long.jbb", "title = T\n\n" + std::string(100000, 'x'));
    const Page refused = loadFrom(folder.path(), "long.jbb", {"de"});
    EXPECT_EQ(refused.title, "Diese Seite kann nicht gezeigt werden");
    EXPECT_EQ(textOf(refused.paragraphs.back()), "Grund: long.jbb: die Datei ist zu gro\xC3\x9F.");
}

TEST(BillboardFile, PrefersTheUsersLanguageAndReadsBothEncodings) {
    const jsw::test::TempFolder folder;
    folder.write("Scripts\\page.jbb", "title = Welcome\n");
    folder.write("Scripts\\page.de.jbb", "title = Gr\xFC\xDF Gott\n");  // code page 1252
    folder.write("Scripts\\utf8.jbb", "title = Gr\xC3\xBC\xC3\x9F Gott\n");
    EXPECT_EQ(loadFrom(folder.path(), "page.jbb", {"en-GB", "en"}).title, "Welcome");
    for (const char* page : {"page.jbb", "utf8.jbb"}) {
        EXPECT_EQ(loadFrom(folder.path(), page, {"de-AT", "de"}).title, "Gr\xC3\xBC\xC3\x9F Gott");
    }
}

}  // namespace
