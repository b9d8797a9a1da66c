#include "common/Language.h"

#include "common/Encoding.h"
#include "common/Files.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace jsw::common {
namespace {

/** Letters, digits and hyphens: the code becomes part of a file name. */
bool isCode(std::string_view code) {
    return !code.empty() && std::all_of(code.begin(), code.end(), [](unsigned char letter) {
        return IsCharAlphaNumericA(static_cast<char>(letter)) || letter == '-';
    });
}

std::string localeText(LCTYPE type) {
    std::array<char, 16> text{};
    GetLocaleInfoA(MAKELCID(GetUserDefaultUILanguage(), SORT_DEFAULT), type, text.data(),
                   static_cast<int>(text.size()));
    return text.data();
}

/** "jswtexts.de.txt" */
std::string fileName(const std::string& code) {
    return "jswtexts." + code + ".txt";
}

}  // namespace

std::vector<std::string> userLanguages() {
    std::array<char, 16> wanted{};
    const DWORD length = GetEnvironmentVariableA("JSW_WINDOW_LANGUAGE", wanted.data(),
                                                 static_cast<DWORD>(wanted.size()));
    if (length < wanted.size() && isCode(wanted.data())) return {wanted.data()};
    const std::string language = localeText(LOCALE_SISO639LANGNAME);
    return {language + "-" + localeText(LOCALE_SISO3166CTRYNAME), language};
}

std::optional<LanguageFile> readLanguage(const std::string& code) {
    const auto bytes = readStart(moduleFolder(thisModule()) + fileName(code), kMaxLanguageFile + 1);
    if (!bytes) return std::nullopt;
    return isUtf8(*bytes) ? parseLanguageFile(*bytes) : LanguageFile{{}, "the file is not UTF-8"};
}

void translate(const std::vector<std::string>& languages, std::string_view section,
               const std::vector<NamedText>& texts) {
    for (const std::string& code : languages) {
        const auto file = readLanguage(code);
        if (!file) continue;
        const std::string problem =
            file->problem.empty() ? takeTexts(*file, section, texts) : file->problem;
        if (!problem.empty()) OutputDebugStringA((fileName(code) + ": " + problem + "\n").c_str());
        return;
    }
}

}  // namespace jsw::common
