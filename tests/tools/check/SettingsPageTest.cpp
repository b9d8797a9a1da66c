// Compares docs/settings.md with jsw/settings/SettingNames.h, in both directions.

#include "PublicLib/os/ProductLines.h"
#include "PublicLib/text/Text.h"
#include "tests/support/TempFolder.h"
#include "tools/jswctl/check/SettingLists.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>

namespace jsw {
namespace {

std::string sourceFile(const std::string& name) {
    const std::string content = test::readFile(concat(JSW_SOURCE_FOLDER, "/", name));
    EXPECT_FALSE(content.empty()) << name;
    return content;
}

std::string row(const std::string& key, const std::string& name, const std::string& type,
                const std::string& defaultValue) {
    return key + " | " + name + " | " + type + " | " + defaultValue;
}

std::set<std::string> rowsOfTheHeader() {
    std::set<std::string> rows;
    const auto addTexts = [&](const auto& texts) {
        for (const setting::Text* text : texts) {
            rows.insert(row(text->key, text->name, "text", text->defaultValue));
        }
    };
    const auto addNumbers = [&](const auto& numbers) {
        for (const setting::Number* number : numbers) {
            rows.insert(row(number->key, number->name, "number", concat(number->defaultValue)));
        }
    };
    addTexts(setting::kHostTexts);
    addNumbers(setting::kHostNumbers);
    addTexts(setting::kPrinterTexts);
    addNumbers(setting::kPrinterNumbers);
    return rows;
}

std::string unquoted(std::string cell) {
    cell = std::regex_replace(cell, std::regex("^ +| +$"), "");
    return std::regex_replace(cell, std::regex("`"), "");
}

/// The rows whose third column is a type.
std::set<std::string> rowsOfThePage(const std::string& page) {
    static const std::regex kRow(R"(\|([^|\n]*)\|([^|\n]*)\| (text|number) \|([^|\n]*)\|)");
    std::set<std::string> rows;
    for (std::sregex_iterator match(page.begin(), page.end(), kRow), end; match != end; ++match) {
        rows.insert(
            row(unquoted((*match)[1]), unquoted((*match)[2]), (*match)[3], unquoted((*match)[4])));
    }
    return rows;
}

TEST(SettingsPageTest, PageAndHeaderNameTheSameValues) {
    const std::set<std::string> header = rowsOfTheHeader();
    const std::set<std::string> page = rowsOfThePage(sourceFile("docs/settings.md"));
    for (const std::string& known : header) EXPECT_TRUE(page.contains(known)) << known;
    for (const std::string& told : page) EXPECT_TRUE(header.contains(told)) << told;
}

TEST(SettingsPageTest, TheListsHoldEveryConstantOfTheHeader) {
    const std::string header = sourceFile("jsw/settings/SettingNames.h") +
                               sourceFile("PublicLib/logging/LogSwitches.h") +
                               sourceFile("PublicLib/printer/PrinterSettings.h");
    const std::string lists = sourceFile("tools/jswctl/check/SettingLists.h");
    static const std::regex kConstant(R"(inline constexpr (Text|Number) (k\w+)\s*\{)");
    int count = 0;
    for (std::sregex_iterator match(header.begin(), header.end(), kConstant), end; match != end;
         ++match, ++count) {
        EXPECT_NE(lists.find("&" + (*match)[2].str()), std::string::npos) << (*match)[2];
    }
    EXPECT_EQ(static_cast<std::size_t>(count), rowsOfTheHeader().size());
}

TEST(SettingsPageTest, KeysAndProductLinesAreOnThePage) {
    const std::string page = sourceFile("docs/settings.md");
    for (const std::string key : {setting::kHistoryIdsKey, setting::kGuiKey,
                                  setting::kUpdatedFilesKey, setting::kLoggerKey}) {
        EXPECT_NE(page.find("`" + key + "`"), std::string::npos) << key;
    }
    for (const ProductLine& line : productLines()) {
        const std::string cells = concat("`", line.prefix, "` | `", line.key, "`");
        EXPECT_NE(page.find(cells), std::string::npos) << cells;
    }
}

}  // namespace
}  // namespace jsw
