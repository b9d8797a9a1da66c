#include "tests/support/TempFolder.h"
#include "tools/jswctl/log/KnownTexts.h"
#include "tools/jswctl/log/LogLine.h"
#include "tools/jswctl/log/StoryTexts.h"
#include "tools/jswctl/log/TextReport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace jsw::ctl::log {

namespace {

/// The string literals of C++ source text, adjacent ones joined as the compiler joins them, with
/// the escapes that occur in log texts resolved.
std::vector<std::string> literalsOf(std::string_view source) {
    std::vector<std::string> literals;
    bool adjacent = false;
    for (std::size_t i = 0; i < source.size(); ++i) {
        if (source.substr(i, 2) == "//") {
            i = std::min(source.find('\n', i), source.size());
        } else if (source.substr(i, 2) == "/*") {
            i = source.find("*/", i) + 1;
        } else if (source[i] == '\'' && i + 2 < source.size()) {
            i = source.find('\'', i + (source[i + 1] == '\\' ? 3 : 2));
            adjacent = false;
        } else if (source[i] == '"') {
            if (!adjacent) literals.emplace_back();
            for (++i; i < source.size() && source[i] != '"'; ++i) {
                if (source[i] == '\\') ++i;
                literals.back() += source[i];
            }
            adjacent = true;
        } else if (source[i] != ' ' && source[i] != '\n' && source[i] != '\r') {
            adjacent = false;
        }
    }
    return literals;
}

/// The literals of all product sources.
const std::vector<std::string>& productLiterals() {
    static const std::vector<std::string> literals = [] {
        std::vector<std::string> all;
        for (const char* folder : {"/PublicLib", "/jsw"}) {
            for (const auto& file : std::filesystem::recursive_directory_iterator(
                     JSW_SOURCE_DIR + std::string(folder))) {
                const auto extension = file.path().extension();
                if (extension != ".cpp" && extension != ".h") continue;
                const auto some = literalsOf(test::readFile(file.path().string()));
                std::copy_if(
                    some.begin(), some.end(), std::back_inserter(all),
                    [](const std::string& text) { return text.find(".h") == std::string::npos; });
            }
        }
        return all;
    }();
    return literals;
}

bool occursInProduct(std::string_view text) {
    const auto& literals = productLiterals();
    return std::any_of(literals.begin(), literals.end(), [&](const std::string& literal) {
        return literal.find(text) != std::string::npos;
    });
}

/// Of " checkHistory=true" what the product writes letter for letter, "checkHistory=".
std::string_view withoutValue(std::string_view piece) {
    piece.remove_prefix(std::min(piece.size(), piece.find_first_not_of(' ')));
    const std::size_t equals = piece.rfind('=');
    return piece.substr(0, equals == std::string_view::npos ? equals : equals + 1);
}

bool isTrouble(const std::string& text) {
    const char* const words[] = {"ERROR", "WARNING", "Unable", "unable", "Could not", "FAILED"};
    return std::any_of(std::begin(words), std::end(words),
                       [&](const char* word) { return text.find(word) != std::string::npos; });
}

}  // namespace

TEST(KnownTexts, LiteralsAreReadAsTheCompilerReadsThem) {
    EXPECT_EQ(literalsOf("f(\"a \" // \"no\"\n  \"b\\\\\", '\"', \"c\"); /* \"no\" */ \"d\\\"\""),
              (std::vector<std::string>{"a b\\", "c", "d\""}));
    EXPECT_GT(productLiterals().size(), 500U);
}

TEST(KnownTexts, EveryTextIsOneThatTheProductWrites) {
    for (const KnownText& known : knownTexts()) {
        EXPECT_TRUE(occursInProduct(known.text)) << known.text << ": no longer in the sources";
    }
}

/// A new text of the product needs a cause and a remedy in the table. Only the bare words before a
/// failure's reason are left to the table's general entries.
TEST(KnownTexts, EveryTroubleOfTheProductIsKnown) {
    const std::set<std::string> bareWords = {"ERROR - ", "WARNING: "};
    const auto general = [](const KnownText* known) {
        return known == nullptr || known->text == "ERROR - " || known->text == "WARNING: ";
    };
    for (const std::string& literal : productLiterals()) {
        if (!isTrouble(literal) || bareWords.contains(literal)) continue;
        EXPECT_FALSE(general(findKnownText(literal)))
            << "\"" << literal << "\" has no entry in tools/jswctl/log/KnownTexts.cpp";
    }
}

/// An entry hidden by another one would never be found.
TEST(KnownTexts, EveryTextFindsItsOwnEntry) {
    for (const KnownText& known : knownTexts()) {
        EXPECT_EQ(findKnownText(known.text), &known) << known.text;
        EXPECT_FALSE(known.symptom.empty() || known.cause.empty() || known.remedy.empty());
        for (const std::string_view words :
             {known.text, known.symptom, known.cause, known.remedy}) {
            EXPECT_EQ(words.find('|'), std::string_view::npos) << "would end a cell of the table";
        }
    }
}

/// A pattern's text between the method's tag and the placeholders is the product's.
TEST(KnownTexts, StoriesAreMadeOfTextsOfTheProduct) {
    for (const StoryText& story : storyTexts()) {
        std::string_view rest = story.pattern;
        if (rest.front() == '+' || rest.front() == '-') rest.remove_prefix(1);
        const std::string_view method = methodName(rest);
        EXPECT_TRUE(occursInProduct(method) || method.empty()) << story.pattern;
        rest.remove_prefix(std::min(rest.size(), rest.find_first_of(" {", method.size())));
        while (!rest.empty()) {
            const std::string_view piece = rest.substr(0, rest.find("{}"));
            EXPECT_TRUE(occursInProduct(withoutValue(piece))) << story.pattern;
            rest.remove_prefix(std::min(rest.size(), piece.size() + 2));
        }
    }
}

TEST(KnownTexts, TheManualHasTheSameTable) {
    std::string manual = test::readFile(JSW_SOURCE_DIR "/docs/logging.md");
    std::erase(manual, '\r');
    EXPECT_NE(manual.find(knownTextsAsMarkdown()), std::string::npos)
        << "put the answer of 'jswctl log --texts' into docs/logging.md";
}

}  // namespace jsw::ctl::log
