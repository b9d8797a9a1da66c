#include "common/Language.h"
#include "tests/window/EvenMeasure.h"
#include "window/prompt/PromptLayout.h"
#include "window/prompt/PromptText.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace {

using namespace jsw::window;
using jsw::window::Box;
using jsw::window::PlacedText;

TEST(PromptText, CountsPagesAndSheetsInTheUsersLanguage) {
    const PromptTexts english;
    const auto german = jsw::common::translated<PromptTexts>({"de"});
    EXPECT_TRUE(promptText(1, 1, english).ends_with("\n\n1 page on 1 sheet."));
    EXPECT_TRUE(promptText(1, 2, german).ends_with("\n\n2 Seiten auf 1 Blatt."));
    EXPECT_TRUE(promptText(1, 5, german).ends_with("\n\n5 Seiten auf 3 Blättern."));
    EXPECT_EQ(promptText(1, -1, english).find('\n'), std::string::npos);
    EXPECT_EQ(promptText(-7, 3, german), "Der Drucker braucht Ihre Aufmerksamkeit (-7).");
    EXPECT_EQ(*noteText(5, german), "Die Abdeckung ist offen.");
    EXPECT_EQ(noteText(99, german), nullptr);
}

TEST(PromptLayout, NothingOverlapsAndEveryTextFits) {
    std::string longName;
    for (int i = 0; i < 20; ++i) longName += "a printer on the floor above ";
    const std::string hebrew = "\xD7\x9E\xD7\x93\xD7\xA4\xD7\xA1\xD7\xAA";
    for (const std::string code : {"en", "de"}) {
        const auto texts = jsw::common::translated<PromptTexts>({code});
        for (const std::string& printer :
             {std::string("Printer"), std::string(), longName, hebrew}) {
            for (const int percent : {100, 125, 150, 200}) {
                for (const int type : {1, 2, 3, 4, 5, 99}) {
                    const jsw::window::Scale scale(jsw::window::kBaseDpi * percent / 100);
                    const jsw::test::EvenMeasure measure(scale);
                    const PromptLayout layout =
                        layoutPrompt(printer, promptText(type, 12, texts), texts.coverClosed, texts,
                                     measure, scale);
                    const std::string what =
                        code + ", " + std::to_string(percent) + " %, type " + std::to_string(type);
                    std::vector<PlacedText> placed = layout.textLines;
                    placed.insert(placed.end(), {layout.printer, layout.note});
                    std::vector<Box> boxes{layout.sign};
                    for (const PlacedText& text : placed) {
                        EXPECT_LE(measure.width(text.text, text.font), text.box.width()) << what;
                        boxes.push_back(text.box);
                    }
                    for (const auto& button : layout.buttons) {
                        EXPECT_EQ(button.full, "") << what;
                        EXPECT_TRUE(layout.footer.contains(button.box)) << what;
                        boxes.push_back(button.box);
                    }
                    for (std::size_t i = 0; i < boxes.size(); ++i) {
                        EXPECT_TRUE(
                            (Box{0, 0, layout.size.width, layout.size.height}).contains(boxes[i]))
                            << what;
                        for (std::size_t j = 0; j < i; ++j) {
                            EXPECT_FALSE(boxes[i].overlaps(boxes[j])) << what;
                        }
                    }
                }
            }
        }
    }
}

}  // namespace
