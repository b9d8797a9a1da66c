#include "PublicLib/logging/LogLine.h"
#include "tests/support/FuzzSeeds.h"
#include "tools/jswctl/log/LineReader.h"
#include "tools/jswctl/log/LogLine.h"
#include "tools/jswctl/log/Pattern.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace jsw::ctl::log {

namespace {

const std::string kHeading = "2026/11/21-17:31:42.590 ";
const std::string kComponent = "JSW                       ";

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream input(text);
    LineReader reader(input);
    std::vector<std::string> lines;
    while (reader.next()) lines.emplace_back(reader.line());
    return lines;
}

}  // namespace

/// The tool reads what the library writes, whichever parts of the header are on.
TEST(LogLine, ReadsWhatTheLibraryWrites) {
    const LogTime time{2026, 2, 28, 23, 59, 58, 7};
    for (int parts = 0; parts < 8; ++parts) {
        for (const char* component : {"JSW", "AComponentWithAVeryLongNameIndeed"}) {
            LogHeader header{};
            if ((parts & 1) != 0) header.time = time;
            if ((parts & 2) != 0) header.processId = 0xAB;
            if ((parts & 4) != 0) header.threadId = 0x12345678;
            header.component = component;
            header.componentWidth = 25;
            header.depth = 3;
            const std::string text = formatLogLine(header, "+History::add: ");
            const auto line = parseLine(text);
            ASSERT_TRUE(line) << text;
            EXPECT_EQ(line->time.has_value(), (parts & 1) != 0);
            EXPECT_EQ(line->time.value_or(1772323198007), 1772323198007);
            EXPECT_EQ(line->processId, header.processId);
            EXPECT_EQ(line->threadId, header.threadId);
            EXPECT_EQ(line->component, component);
            EXPECT_EQ(line->depth, 3U);
            EXPECT_EQ(line->text, "+History::add: ");
        }
    }
}

TEST(LogLine, RefusesWhatIsNoWholeLine) {
    const std::string rest = kComponent + "text";
    EXPECT_TRUE(parseLine(kHeading + rest));
    const std::string refused[] = {
        "",
        "text",
        "a sentence of another program that is long enough",
        kHeading,
        kHeading + "JSW text",                // not padded
        "2026/11/21-17:31:42.59 " + rest,     // a digit is missing
        "2026/02/29-17:31:42.590 " + rest,    // no such day
        "2026/11/21-24:31:42.590 " + rest,    // no such hour
        kHeading + "pid=xyz " + rest,         //
        kHeading + "pid=123456789 " + rest,   // more than 32 bits
        kHeading + "pid=12 " + rest,          // fewer digits than are written
        kHeading + "tid=00",                  // torn
        kHeading + kComponent.substr(0, 20),  // torn in the padding
        rest.substr(1),                       // torn at the front
    };
    for (const std::string& text : refused) EXPECT_FALSE(parseLine(text)) << text;
}

TEST(LogLine, FindsALineThatBeginsInsideATornOne) {
    const std::string line = kHeading + kComponent + "text";
    const std::string torn = kHeading + kComponent + "+Histo" + line;
    EXPECT_EQ(findNextHeading(torn, 1), torn.size() - line.size());
    EXPECT_EQ(findNextHeading(line, 1), std::string::npos);
    EXPECT_EQ(findNextHeading(line, 0), 0U);
    // A time alone, such as in a job's name, is not a header.
    EXPECT_EQ(findNextHeading("jobname=" + kHeading + "and more", 0), std::string::npos);
}

TEST(LogLine, TellsEntriesAndExitsFromOtherTexts) {
    EXPECT_EQ(kindOf("+History::add: "), TextKind::entry);
    EXPECT_EQ(kindOf("-BasicDll<Handler>::~BasicDll(): "), TextKind::exit);
    EXPECT_EQ(kindOf(">>> BillboardView::showGui: "), TextKind::markerIn);
    EXPECT_EQ(kindOf("<<< BillboardView::showGui: "), TextKind::markerOut);
    for (const char* text :
         {"", "-", "-1", "+ and more", "History::add: bbId=a", "-not a method"}) {
        EXPECT_EQ(kindOf(text), TextKind::message) << text;
    }
    EXPECT_EQ(methodName("Controller::isBillboardIdValid: bbId=tip1."),
              "Controller::isBillboardIdValid");
    EXPECT_EQ(methodName("SettingsInstaller::installSettings():"),
              "SettingsInstaller::installSettings");
    EXPECT_EQ(methodName("::nothing"), "");
}

TEST(LineReader, CutsLinesAtTheirEndsAndAtItsLimit) {
    EXPECT_EQ(linesOf(""), std::vector<std::string>());
    EXPECT_EQ(linesOf("a\r\n\nb\rc\nlast"), (std::vector<std::string>{"a", "", "b\rc", "last"}));

    // Longer than the limit and the reader's buffer; the next line is complete.
    std::istringstream input(std::string(900'000, 'x') + "\r\nnext\r\n");
    LineReader reader(input);
    ASSERT_TRUE(reader.next());
    EXPECT_TRUE(reader.isCut());
    EXPECT_EQ(reader.line().size(), LineReader::kMaxLength);
    ASSERT_TRUE(reader.next());
    EXPECT_FALSE(reader.isCut());
    EXPECT_TRUE(reader.isEnded());
    EXPECT_EQ(reader.line(), "next");
    EXPECT_EQ(reader.number(), 2U);
    EXPECT_FALSE(reader.next());
}

TEST(Pattern, TakesWhatVaries) {
    Captures part;
    ASSERT_TRUE(matches("a={} b={}.", "a=1 b=2.5.", part));
    EXPECT_EQ(part[0], "1");
    EXPECT_EQ(part[1], "2.5");
    EXPECT_TRUE(matches("{}", "", part));
    EXPECT_FALSE(matches("a={} b={}.", "a=1 b=2", part));
    EXPECT_FALSE(matches("a={}.", "a=", part));
    EXPECT_FALSE(matches("a", "ab", part));
    EXPECT_EQ(fillIn("{2} and {1}, {x} {", Captures{"one", "two"}), "two and one, {x} {");
}

TEST(LogLine, ReadsNothingBeyondTheFuzzersSeeds) {
    EXPECT_GT(test::replaySeeds(JSW_FUZZ_CORPUS "/log", 50), 5);
}

}  // namespace jsw::ctl::log
