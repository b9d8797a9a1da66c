#include "tests/window/EvenMeasure.h"
#include "window/ui/TextFit.h"
#include "window/view/ControlIds.h"
#include "window/view/WindowLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace jsw::view;

using jsw::test::EvenMeasure;

/** Everything in the window that must not lie on anything else. */
std::vector<std::pair<std::string, Box>> partsOf(const WindowLayout& layout) {
    std::vector<std::pair<std::string, Box>> parts;
    const auto addText = [&](const PlacedText& text) { parts.emplace_back(text.text, text.box); };
    const auto addInk = [&](const InkLayout& ink) {
        if (ink.sentence) addText(*ink.sentence);
        for (const InkCell& cell : ink.cells) {
            addText(cell.label);
            addText(cell.level);
            parts.emplace_back("ink bar", cell.bar);
        }
    };
    for (const auto& text : layout.texts) addText(text.placed);
    for (const PlacedText& line : layout.questionLines) addText(line);
    parts.emplace_back("progress bar", layout.progressBar);
    addInk(layout.inkLayout);
    if (layout.hasPage) {
        if (!layout.page.panel.empty()) parts.emplace_back("panel", layout.page.panel);
        for (const Box& dot : layout.page.dots) parts.emplace_back("dot", dot);
        for (const PlacedText& line : layout.page.lines) addText(line);
        addInk(layout.page.ink);
    }
    for (const auto* buttons :
         {&layout.page.links, &layout.page.buttons, &layout.buttons, &layout.checkBoxes}) {
        for (const PlacedButton& button : *buttons) parts.emplace_back(button.label, button.box);
    }
    return parts;
}

/** Texts with the room that they have. */
std::vector<PlacedText> textsOf(const WindowLayout& layout) {
    std::vector<PlacedText> texts = layout.questionLines;
    for (const auto& text : layout.texts) texts.push_back(text.placed);
    for (const InkLayout* ink : {&layout.inkLayout, &layout.page.ink}) {
        if (ink->sentence) texts.push_back(*ink->sentence);
        for (const InkCell& cell : ink->cells) texts.insert(texts.end(), {cell.label, cell.level});
    }
    texts.insert(texts.end(), layout.page.lines.begin(), layout.page.lines.end());
    for (const auto* buttons :
         {&layout.page.links, &layout.page.buttons, &layout.buttons, &layout.checkBoxes}) {
        for (const PlacedButton& button : *buttons) {
            texts.push_back({button.box, jsw::ui::withoutAccessKey(button.label), button.full,
                             Font::normal, Tone::usual, Side::left});
        }
    }
    return texts;
}

void expectGood(const WindowLayout& layout, const TextMeasure& measure, const std::string& what) {
    const Box window{0, 0, layout.size.width, layout.size.height};
    const auto parts = partsOf(layout);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        EXPECT_TRUE(window.contains(parts[i].second)) << what << ": " << parts[i].first;
        EXPECT_FALSE(parts[i].second.empty()) << what << ": " << parts[i].first;
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_FALSE(parts[i].second.overlaps(parts[j].second))
                << what << ": " << parts[i].first << " lies on " << parts[j].first;
        }
    }
    for (const PlacedText& text : textsOf(layout)) {
        EXPECT_LE(measure.width(text.text, text.font), text.box.width())
            << what << ": " << text.text;
        if (!text.full.empty()) {
            EXPECT_TRUE(text.text.ends_with(jsw::ui::kEllipsis)) << what << ": " << text.text;
        }
    }
    // What is left out of a page is in its tooltip.
    const auto& lines = layout.page.lines;
    const bool pageIsCut = std::any_of(lines.begin(), lines.end(), [](const PlacedText& line) {
        return line.font == Font::normal && line.text.ends_with(jsw::ui::kEllipsis);
    });
    EXPECT_TRUE(!pageIsCut || !layout.page.full.empty()) << what;
}

struct Case {
    std::string name;
    JobData data;
    Page page;
    Question question = Question::none;
};

Page samplePage() {
    const auto parsed = parseBillboard(
        "title = Time for a new cartridge and much else\npicture = drop\n"
        "button = Order cartridges | LAUNCH_URL | 0\nbutton = &Ink && more | INK_STATUS | 0\n\n"
        "One of your cartridges is running low. Text stays readable, see [the shop | LAUNCH_URL | "
        "1], for a while; photos and large areas of colour fade first.\n"
        "- Keep a spare at hand, so that no document has to wait.\n"
        "- Leave the old cartridge in place until the printer asks for [a new one | NEXT | 0].\n");
    EXPECT_EQ(parsed.problem, Problem::none);
    return parsed.page;
}

JobData usualJob(int cartridges) {
    JobData data;
    data.jobName = "report.pdf";
    data.printerName = "SimulatedPrinter";
    data.progress = {2, 3, 1, 2, true, 65U};
    data.inkTold = true;
    for (int i = 0; i < cartridges; ++i)
        data.inkPercents[static_cast<std::size_t>(i)] = 95 - 20 * i;
    data.reserveMode = {cartridges > 3, cartridges > 4};
    return data;
}

std::vector<Case> cases(const Strings& strings) {
    std::vector<Case> all;
    for (int cartridges = 0; cartridges <= 5; ++cartridges) {
        all.push_back(
            {std::to_string(cartridges) + " cartridges", usualJob(cartridges), samplePage()});
    }
    all.push_back({"ten cartridges", usualJob(2), samplePage()});
    all.back().data.inkPercents.fill(10);
    all.push_back({"ink not told", usualJob(0), emptyPage(strings)});
    all.back().data.inkTold = false;
    all.push_back({"long names", usualJob(3), samplePage()});
    for (std::string* name : {&all.back().data.jobName, &all.back().data.printerName}) {
        for (int i = 0; i < 60; ++i) *name += " WWW und noch ein sehr langer Name";
    }
    all.push_back({"long name without a blank", usualJob(3), samplePage()});
    all.back().data.jobName = std::string(100000, 'W');
    all.push_back({"names from right to left", usualJob(2), samplePage()});
    all.back().data.printerName = "\xD7\x9E\xD7\x93\xD7\xA4\xD7\xA1\xD7\xAA";
    for (int i = 0; i < 40; ++i) all.back().data.jobName += "\xD7\x93\xD7\x95\xD7\x97 ";
    all.push_back({"pages not known", usualJob(2), samplePage()});
    all.back().data.progress = {123456, -1, 1, 1, true, {}};
    all.push_back({"no pages", usualJob(2), emptyPage(strings)});
    all.back().data.progress = {0, 0, 0, 0, true, 0U};
    all.push_back({"huge numbers", usualJob(2), samplePage()});
    all.back().data.progress = {2147483647, 2147483647, 2147483647, 2147483647, true, 359999U};
    all.push_back({"no page", usualJob(2), emptyPage(strings)});
    all.push_back(
        {"damaged page", usualJob(2), unshowablePage("page.jbb", Problem::badButton, strings)});
    all.push_back({"page without picture, with a long text", usualJob(2), samplePage()});
    all.back().page.picture = Picture::none;
    for (int i = 0; i < 18; ++i)
        all.back().page.paragraphs.push_back(all.back().page.paragraphs[0]);
    all.push_back({"page of one endless word", usualJob(2), emptyPage(strings)});
    all.back().page.paragraphs = {plainParagraph(std::string(2000, 'x'))};
    all.back().page.title = std::string(120, 'W');
    all.push_back({"page with long buttons", usualJob(2), samplePage()});
    all.back().page.buttons.assign(3, {std::string(40, 'W'), "NEXT", 0});
    all.push_back({"ink page", usualJob(5), samplePage()});
    all.back().page.picture = Picture::ink;
    all.back().page.paragraphs.resize(1);
    all.push_back({"cancelling", usualJob(2), samplePage()});
    all.back().data.cancelling = true;
    all.push_back({"asking", usualJob(2), samplePage(), Question::cancel});
    all.back().data.progress.totalCopies = 2147483647;
    all.push_back({"closing", usualJob(2), samplePage(), Question::close});
    return all;
}

constexpr Size kSizes[] = {kLeastSize, {440, 560}, kUsualSize, {1600, 1000}};

TEST(WindowLayout, NothingOverlapsAndEveryTextFitsOrIsCut) {
    for (const Language* language = Language::first(); language; language = language->next()) {
        for (const Case& each : cases(language->strings())) {
            const WindowContent content =
                describeJob(each.data, each.question, language->strings());
            for (const int percent : {100, 125, 150, 200}) {
                const Scale scale(jsw::ui::kBaseDpi * percent / 100);
                const EvenMeasure measure(scale);
                for (const Size& size : kSizes) {
                    const WindowLayout layout =
                        layoutWindow(content, each.page, {scale(size.width), scale(size.height)},
                                     language->strings(), measure, scale);
                    expectGood(layout, measure,
                               each.name + ", " + language->code() + ", " +
                                   std::to_string(percent) + " %, " + std::to_string(size.width) +
                                   " x " + std::to_string(size.height));
                }
            }
        }
    }
}

WindowLayout usualLayout(const JobData& data, const Page& page, Size size = kUsualSize,
                         Question question = Question::none) {
    const Strings& strings = Language::choose(0x409).strings();
    return layoutWindow(describeJob(data, question, strings), page, size, strings,
                        EvenMeasure(Scale()), Scale());
}

TEST(WindowLayout, ShowsTheWholeSamplePageAtItsUsualSize) {
    const WindowLayout layout = usualLayout(usualJob(2), samplePage());
    ASSERT_TRUE(layout.hasPage);
    EXPECT_EQ(layout.page.full, "");
    EXPECT_EQ(layout.page.links.size(), 2U);
    EXPECT_EQ(layout.page.dots.size(), 2U);
    ASSERT_EQ(layout.page.buttons.size(), 2U);
    EXPECT_EQ(layout.page.buttons[1].label, "&Ink && more");
}

TEST(WindowLayout, TheQuestionTakesThePlaceOfTheChoices) {
    const WindowLayout layout =
        usualLayout(usualJob(2), samplePage(), kUsualSize, Question::cancel);
    EXPECT_TRUE(layout.checkBoxes.empty());
    const auto has = [&](int id) {
        return std::any_of(layout.buttons.begin(), layout.buttons.end(),
                           [id](const PlacedButton& button) { return button.id == id; });
    };
    EXPECT_TRUE(has(JSW_VIEW_YES) && has(JSW_VIEW_NO));
    EXPECT_FALSE(has(JSW_VIEW_CANCEL));
}

TEST(WindowLayout, MoreRoomGoesToThePage) {
    Page page = samplePage();
    for (int i = 0; i < 8; ++i) page.paragraphs.push_back(page.paragraphs[1]);
    EXPECT_NE(usualLayout(usualJob(2), page).page.full, "");
    EXPECT_EQ(usualLayout(usualJob(2), page, {900, 900}).page.full, "");
    JobData manyCartridges = usualJob(2);
    manyCartridges.inkPercents.fill(10);
    EXPECT_FALSE(usualLayout(manyCartridges, page, kLeastSize).hasPage);
}

TEST(TextFit, CutsAtCharactersAndWrapsAtBlanks) {
    const EvenMeasure measure{Scale()};
    const std::string umlauts = "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\xA4\xC3\xB6\xC3\xBC";
    EXPECT_EQ(jsw::ui::cutToWidth(umlauts, Font::normal, 42, measure), umlauts);
    EXPECT_EQ(jsw::ui::cutToWidth(umlauts, Font::normal, 41, measure),
              "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\xA4\xE2\x80\xA6");
    EXPECT_EQ(jsw::ui::cutToWidth(umlauts, Font::normal, 0, measure), "\xE2\x80\xA6");
    EXPECT_EQ(jsw::ui::cutToWidth("", Font::normal, 0, measure), "");

    const auto wrapped = jsw::ui::wrapToWidth("aaa bbb ccc", Font::normal, 50, 5, measure);
    EXPECT_EQ(wrapped.lines, (std::vector<std::string>{"aaa bbb", "ccc"}));
    EXPECT_FALSE(wrapped.cut);
    const auto cut = jsw::ui::wrapToWidth("aaa bbb ccc", Font::normal, 50, 1, measure);
    EXPECT_EQ(cut.lines, (std::vector<std::string>{"aaa bb\xE2\x80\xA6"}));
    EXPECT_TRUE(cut.cut);
    EXPECT_EQ(jsw::ui::wrapToWidth("aaaaaaaaaa", Font::normal, 50, 5, measure).lines,
              (std::vector<std::string>{"aaaaaaa", "aaa"}));

    EXPECT_TRUE(jsw::ui::readsRightToLeft("12 \xD7\x93\xD7\x95\xD7\x97 pdf"));
    EXPECT_TRUE(jsw::ui::readsRightToLeft("\xD8\xA7"));
    EXPECT_FALSE(jsw::ui::readsRightToLeft("pdf \xD7\x93"));
    EXPECT_FALSE(jsw::ui::readsRightToLeft("\xC3\xA4 \xD7\x93"));
    EXPECT_FALSE(jsw::ui::readsRightToLeft("123"));
}

}  // namespace
