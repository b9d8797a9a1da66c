#include "common/Language.h"
#include "tests/window/EvenMeasure.h"
#include "window/ui/TextFit.h"
#include "window/view/WindowIds.h"
#include "window/view/WindowLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace jsw::window;

using jsw::test::EvenMeasure;

/** Everything in the window that must not overlap anything. */
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
    if (!layout.page.panel.empty()) parts.emplace_back("panel", layout.page.panel);
    if (!layout.page.scrollBar.empty()) parts.emplace_back("scroll bar", layout.page.scrollBar);
    for (const auto* buttons : {&layout.page.buttons, &layout.buttons, &layout.checkBoxes}) {
        for (const PlacedButton& button : *buttons) parts.emplace_back(button.label, button.box);
    }
    // The visible part of what scrolls.
    const std::size_t scrolled = parts.size();
    for (const Box& dot : layout.page.dots) parts.emplace_back("dot", dot);
    for (const PlacedText& line : layout.page.lines) addText(line);
    addInk(layout.page.ink);
    for (const PlacedButton& control : layout.page.inText) {
        parts.emplace_back(control.label, control.box);
    }
    for (std::size_t i = scrolled; i < parts.size(); ++i) {
        parts[i].second = parts[i].second.clippedTo(layout.page.textArea);
    }
    std::erase_if(parts, [](const auto& part) { return part.second.empty(); });
    return parts;
}

/** Texts with their room. */
std::vector<PlacedText> textsOf(const WindowLayout& layout) {
    std::vector<PlacedText> texts = layout.questionLines;
    for (const auto& text : layout.texts) texts.push_back(text.placed);
    for (const InkLayout* ink : {&layout.inkLayout, &layout.page.ink}) {
        if (ink->sentence) texts.push_back(*ink->sentence);
        for (const InkCell& cell : ink->cells) texts.insert(texts.end(), {cell.label, cell.level});
    }
    texts.insert(texts.end(), layout.page.lines.begin(), layout.page.lines.end());
    for (const auto* buttons :
         {&layout.page.inText, &layout.page.buttons, &layout.buttons, &layout.checkBoxes}) {
        for (const PlacedButton& button : *buttons) {
            texts.push_back({button.box, jsw::window::withoutAccessKey(button.label), button.full,
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
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_FALSE(parts[i].second.overlaps(parts[j].second))
                << what << ": " << parts[i].first << " lies on " << parts[j].first;
        }
    }
    for (const PlacedText& text : textsOf(layout)) {
        EXPECT_LE(measure.width(text.text, text.font), text.box.width())
            << what << ": " << text.text;
        if (!text.full.empty()) {
            EXPECT_TRUE(text.text.ends_with(jsw::window::kEllipsis)) << what << ": " << text.text;
        }
    }
    // What does not fit a page can be scrolled to.
    EXPECT_EQ(layout.page.textHeight > layout.page.textArea.height(),
              !layout.page.scrollBar.empty())
        << what;
    EXPECT_GE(layout.page.textArea.height(), measure.lineHeight(Font::normal)) << what;
}

/** Checks that nothing that can be pressed is missing. */
void expectEverythingReachable(const WindowLayout& layout, const Page& page, Question question,
                               const std::string& what) {
    std::set<int> ids;
    for (const auto* buttons :
         {&layout.page.inText, &layout.page.buttons, &layout.buttons, &layout.checkBoxes}) {
        for (const PlacedButton& button : *buttons) ids.insert(button.id);
    }
    std::set<std::size_t> links;
    for (const Paragraph& paragraph : page.paragraphs) {
        for (const Piece& piece : paragraph.pieces) {
            if (piece.link) links.insert(*piece.link);
        }
    }
    const std::size_t inFooter = question == Question::none ? 3 : 2;
    EXPECT_EQ(ids.size(), links.size() + page.buttons.size() + 4 + inFooter) << what;
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

std::vector<Case> cases(const WindowTexts& texts) {
    std::vector<Case> all;
    for (int cartridges = 0; cartridges <= 5; ++cartridges) {
        all.push_back(
            {std::to_string(cartridges) + " cartridges", usualJob(cartridges), samplePage()});
    }
    all.push_back({"ten cartridges", usualJob(2), samplePage()});
    all.back().data.inkPercents.fill(10);
    all.push_back({"ink not told", usualJob(0), emptyPage(texts)});
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
    all.push_back({"no pages", usualJob(2), emptyPage(texts)});
    all.back().data.progress = {0, 0, 0, 0, true, 0U};
    all.push_back({"huge numbers", usualJob(2), samplePage()});
    all.back().data.progress = {2147483647, 2147483647, 2147483647, 2147483647, true, 359999U};
    all.push_back({"no page", usualJob(2), emptyPage(texts)});
    all.push_back(
        {"damaged page", usualJob(2), unshowablePage("page.jbb", Problem::badButton, texts)});
    all.push_back({"page without picture, with a long text", usualJob(2), samplePage()});
    all.back().page.picture = Picture::none;
    for (int i = 0; i < 18; ++i)
        all.back().page.paragraphs.push_back(all.back().page.paragraphs[0]);
    all.push_back({"page of one endless word", usualJob(2), emptyPage(texts)});
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

constexpr Size kSizes[] = {{0, 0}, {392, 258}, {440, 460}, kUsualSize, {1600, 1000}};

TEST(WindowLayout, NothingOverlapsAndEveryTextFitsOrIsCut) {
    for (const std::string code : {"en", "de"}) {
        const auto texts = jsw::common::translated<WindowTexts>({code});
        for (const Case& each : cases(texts)) {
            const WindowContent content = describeJob(each.data, each.question, texts);
            for (const int percent : {100, 125, 150, 200}) {
                const Scale scale(jsw::window::kBaseDpi * percent / 100);
                const EvenMeasure measure(scale);
                const Size least = leastSize(content, texts, measure, scale);
                for (const Size& room : kSizes) {
                    const Size size{std::max(scale(room.width), least.width),
                                    std::max(scale(room.height), least.height)};
                    const WindowLayout layout =
                        layoutWindow(content, each.page, size, 0, texts, measure, scale);
                    const std::string what =
                        each.name + ", " + code + ", " + std::to_string(percent) + " %, " +
                        std::to_string(size.width) + " x " + std::to_string(size.height);
                    expectGood(layout, measure, what);
                    expectEverythingReachable(layout, each.page, each.question, what);
                }
            }
        }
    }
}

WindowLayout usualLayout(const JobData& data, const Page& page, Size size = kUsualSize,
                         Question question = Question::none, int scrolled = 0) {
    const WindowTexts texts;
    return layoutWindow(describeJob(data, question, texts), page, size, scrolled, texts,
                        EvenMeasure(Scale()), Scale());
}

TEST(WindowLayout, ShowsTheWholeSamplePageAtItsUsualSize) {
    const WindowLayout layout = usualLayout(usualJob(2), samplePage());
    EXPECT_TRUE(layout.page.scrollBar.empty());
    EXPECT_EQ(layout.page.inText.size(), 2U);
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

TEST(WindowLayout, WhatDoesNotFitThePageCanBeScrolledTo) {
    Page page = samplePage();
    for (int i = 0; i < 8; ++i) page.paragraphs.push_back(page.paragraphs[1]);
    page.paragraphs.push_back(page.paragraphs[2]);
    const PageLayout top = usualLayout(usualJob(2), page).page;
    const PlacedButton& last = top.inText.back();
    EXPECT_EQ(top.scrolled, 0);
    EXPECT_TRUE(top.seenOf(last).empty());
    const auto scrolledTo = [&](int pixels) {
        return usualLayout(usualJob(2), page, kUsualSize, Question::none, pixels).page;
    };
    const PageLayout there = scrolledTo(top.scrolledTo(last));
    EXPECT_EQ(there.seenOf(there.inText.back()), there.inText.back().box);
    const PageLayout end = scrolledTo(100000);
    EXPECT_EQ(end.lines.back().box.bottom, end.textArea.bottom);
    EXPECT_EQ(scrolledTo(-5).scrolled, 0);
    EXPECT_TRUE(usualLayout(usualJob(2), page, {900, 900}).page.scrollBar.empty());
}

TEST(TextFit, CutsAtCharactersAndWrapsAtBlanks) {
    const EvenMeasure measure{Scale()};
    const std::string umlauts = "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\xA4\xC3\xB6\xC3\xBC";
    EXPECT_EQ(jsw::window::cutToWidth(umlauts, Font::normal, 42, measure), umlauts);
    EXPECT_EQ(jsw::window::cutToWidth(umlauts, Font::normal, 41, measure),
              "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\xA4\xE2\x80\xA6");
    EXPECT_EQ(jsw::window::cutToWidth(umlauts, Font::normal, 0, measure), "\xE2\x80\xA6");
    EXPECT_EQ(jsw::window::cutToWidth("", Font::normal, 0, measure), "");

    const auto wrapped = jsw::window::wrapToWidth("aaa bbb ccc", Font::normal, 50, 5, measure);
    EXPECT_EQ(wrapped.lines, (std::vector<std::string>{"aaa bbb", "ccc"}));
    EXPECT_FALSE(wrapped.cut);
    const auto cut = jsw::window::wrapToWidth("aaa bbb ccc", Font::normal, 50, 1, measure);
    EXPECT_EQ(cut.lines, (std::vector<std::string>{"aaa bb\xE2\x80\xA6"}));
    EXPECT_TRUE(cut.cut);
    EXPECT_EQ(jsw::window::wrapToWidth("aaaaaaaaaa", Font::normal, 50, 5, measure).lines,
              (std::vector<std::string>{"aaaaaaa", "aaa"}));

    EXPECT_TRUE(jsw::window::readsRightToLeft("12 \xD7\x93\xD7\x95\xD7\x97 pdf"));
    EXPECT_TRUE(jsw::window::readsRightToLeft("\xD8\xA7"));
    EXPECT_FALSE(jsw::window::readsRightToLeft("pdf \xD7\x93"));
    EXPECT_FALSE(jsw::window::readsRightToLeft("\xC3\xA4 \xD7\x93"));
    EXPECT_FALSE(jsw::window::readsRightToLeft("123"));
}

}  // namespace
