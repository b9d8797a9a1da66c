#include "tests/support/Words.h"
#include "tools/qldemo/DemoOptions.h"
#include "tools/qldemo/DemoScript.h"
#include "tools/qldemo/JobPlan.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace jsw::qldemo {
namespace {

using Arguments = std::vector<std::string>;

TEST(DemoOptionsTest, ACompleteCommandLineIsTaken) {
    Arguments arguments = test::words(
        "--pages 12 --copies 2 --seconds-per-page 0.25 --ink 0,?,100 --log --prompt 0 "
        "--device sim.ini --jobs 3 --script x.jobscript --screenshots shots");
    arguments.insert(arguments.end(), {"--printer", "Quillon Sim 2000", "--job", "a b.pdf"});
    const ParsedOptions parsed = parseOptions(arguments);
    ASSERT_EQ(parsed.error, "");
    const DemoOptions& options = parsed.options;
    EXPECT_EQ(options.mode, Mode::kRunJobs);
    EXPECT_EQ(options.printer, "Quillon Sim 2000");
    EXPECT_EQ(options.job, "a b.pdf");
    EXPECT_EQ(options.pages, 12U);
    EXPECT_EQ(options.copies, 2U);
    EXPECT_EQ(options.jobs, 3U);
    EXPECT_DOUBLE_EQ(options.secondsPerPage, 0.25);
    EXPECT_EQ(options.ink, (InkLevels{0, -1, 100, -1, -1, -1, -1, -1, -1, -1}));
    EXPECT_TRUE(options.log);
    EXPECT_EQ(options.prompt, 0U);
    EXPECT_EQ(options.deviceFile, "sim.ini");
    EXPECT_EQ(options.scriptFile, "x.jobscript");
    EXPECT_EQ(options.screenshotFolder, "shots");
}

TEST(DemoOptionsTest, ModesAreChosenByTheirOption) {
    EXPECT_EQ(parseOptions({}).options.mode, Mode::kRunJobs);
    EXPECT_EQ(parseOptions({"--install"}).options.mode, Mode::kInstall);
    const ParsedOptions record = parseOptions({"--record-url", "urls.txt", "http://a/?b=1"});
    EXPECT_EQ(record.options.mode, Mode::kRecordUrl);
    EXPECT_EQ(record.options.urlFile + " " + record.options.url, "urls.txt http://a/?b=1");
    const ParsedOptions help = parseOptions({"--help", "--nonsense"});
    EXPECT_EQ(help.options.mode, Mode::kHelp);
    EXPECT_EQ(help.error, "");
}

TEST(DemoOptionsTest, BadArgumentsAreNamed) {
    const std::pair<Arguments, const char*> rows[] = {
        {{"--page", "3"}, "unknown option --page"},
        {{"--pages", "0"}, "'0' is not valid for --pages: "},
        {{"--pages", "4294967297"}, "'4294967297' is not valid for --pages: "},
        {{"--seconds-per-page", "nan"}, "'nan' is not valid for --seconds-per-page: "},
        {{"--seconds-per-page", "86401"}, "'86401' is not valid for --seconds-per-page: "},
        {{"--prompt", "2147483648"}, "'2147483648' is not valid for --prompt: "},
    };
    for (const auto& [arguments, expected] : rows) {
        const std::string error = parseOptions(arguments).error;
        EXPECT_TRUE(error.starts_with(expected)) << error << "; expected: " << expected;
    }
}

TEST(DemoOptionsTest, TheNumberOfPagesMayBeUnknown) {
    EXPECT_TRUE(parseOptions({"--pages", "7"}).options.pagesKnown);
    const ParsedOptions unknown = parseOptions({"--pages", "7", "--pages", "?"});
    EXPECT_EQ(unknown.error, "");
    EXPECT_FALSE(unknown.options.pagesKnown);
    EXPECT_EQ(unknown.options.pages, 3U);
}

TEST(DemoOptionsTest, InkListsHoldOneToTenPerCents) {
    ASSERT_TRUE(parseInkLevels("1,2,3,4,5,6,7,8,9,10"));
    EXPECT_EQ(parseInkLevels("1,2,3,4,5,6,7,8,9,10")->back(), 10);
    EXPECT_EQ(parseInkLevels("?")->front(), -1);
    for (const char* bad :
         {"", ",", "5,", ",5", "101", "-1", "50%", " 5", "??", "1.5", "1,2,3,4,5,6,7,8,9,10,11"}) {
        EXPECT_FALSE(parseInkLevels(bad)) << bad;
    }
}

TEST(DemoScriptTest, EveryKindOfStepIsRead) {
    const ParsedScript script = parseScript(
        "# a comment\r\n"
        "\n"
        "at 0 page 2 3   # the third copy\n"
        "at 0.5 prompt 1\n"
        "at 0.5 post 7\n"
        "job 2\n"
        "at 0.25 click next\n"
        "\tat 1 click button 2\n"
        "at 1 answer yes\r\n"
        "at 1 answer 1044\n"
        "at 2 look\n"
        "at 2 screenshot ink-status\n"
        "at 3 end");
    ASSERT_EQ(script.error, "");
    std::string all;
    for (const Step& step : script.steps) {
        all += std::to_string(step.job) + (isDriverStep(step) ? " driver " : " user ") +
               describe(step) + "; ";
    }
    EXPECT_EQ(all,
              "0 driver page 2; 0 driver prompt 1; 0 driver post 7; 2 user click next; "
              "2 user click button 2; 2 user answer yes; 2 user answer 1044; 2 user look; "
              "2 user screenshot ink-status; 2 driver end; ");
    EXPECT_EQ(script.steps.front().copy, 3U);
    EXPECT_DOUBLE_EQ(script.steps.back().at, 3);
}

TEST(DemoScriptTest, TheFirstBadLineIsNamed) {
    const std::pair<const char*, const char*> rows[] = {
        {"at 1 look\n\nlook", "line 3: 'look' is neither at nor job"},
        {"at", "line 1: '' is no time in seconds"},
        {"at -1 look", "line 1: '-1' is no time in seconds"},
        {"at 2 look\nat 1 look", "line 2: the time goes back"},
        {"at 1 jump", "line 1: unknown step 'jump'"},
        {"at 1 page", "line 1: '' is no page"},
        {"at 1 page 0", "line 1: '0' is no page"},
        {"at 1 page 1 x", "line 1: 'x' is no copy"},
        {"at 1 end now", "line 1: 'now' is too much"},
        {"at 1 click", "line 1: there is nothing called '' to click"},
        {"at 1 click Next", "line 1: there is nothing called 'Next' to click"},
        {"at 1 click button", "line 1: '' is no button"},
        {"at 1 answer maybe", "line 1: 'maybe' is no answer"},
        {"at 1 screenshot ../x", "line 1: '../x' is no name for a screenshot"},
        {"job 0", "line 1: '0' is no job"},
    };
    for (const auto& [text, error] : rows) EXPECT_EQ(parseScript(text).error, error) << text;
}

std::string planOf(const DemoOptions& options, const char* script, uint32_t job) {
    std::string all;
    for (const Step& step : planJob(options, parseScript(script).steps, job)) {
        all += std::to_string(static_cast<int>(step.at * 10)) + " " + describe(step) +
               (step.copy > 1 ? " again; " : "; ");
    }
    return all;
}

TEST(DemoScriptTest, APlanHoldsPagesScriptPromptAndEnd) {
    DemoOptions options;
    options.pages = 2;
    options.copies = 2;
    options.secondsPerPage = 0.5;
    EXPECT_EQ(planOf(options, "", 1),
              "0 page 1; 5 page 2; 10 page 1 again; 15 page 2 again; 20 end; ");
    EXPECT_EQ(planOf(options, "at 0.7 look\njob 2\nat 9 click next", 1),
              "0 page 1; 5 page 2; 7 look; 10 page 1 again; 15 page 2 again; 20 end; ");
    EXPECT_EQ(planOf(options, "at 3 page 1\nat 4 look", 1), "30 page 1; 40 look; 45 end; ");
    EXPECT_EQ(planOf(options, "job 2\nat 3 page 1\nat 3 end\nat 5 answer ok", 2),
              "30 page 1; 30 end; 50 answer ok; ");
    options.prompt = 4;
    options.copies = 1;
    EXPECT_EQ(planOf(options, "at 1.5 look", 1),
              "0 page 1; 5 page 2; 5 prompt 4; 15 look; 15 end; ");
}

}  // namespace
}  // namespace jsw::qldemo
