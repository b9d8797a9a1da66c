#include "common/LanguageFile.h"

#include "common/Letters.h"

#include <algorithm>
#include <set>

namespace jsw::common {
namespace {

/** The places for values in a text: the digits of {0}, {1}, ... */
std::set<char> placesIn(std::string_view text) {
    std::set<char> places;
    for (std::size_t i = 0; i + 2 < text.size(); ++i) {
        if (text[i] == '{' && text[i + 2] == '}') places.insert(text[i + 1]);
    }
    return places;
}

std::string inLine(int number, const char* problem) {
    return "line " + std::to_string(number) + " " + problem;
}

/** Takes one line in; answers what is wrong with it, or null. */
const char* takeLine(std::string_view line, LanguageFile& file, TextSection*& section) {
    if (line.empty() || line.starts_with('#')) return nullptr;
    if (line.starts_with('[') && line.ends_with(']')) {
        section = &file.sections[std::string(line.substr(1, line.size() - 2))];
        return nullptr;
    }
    if (line.find('=') == line.npos) return "has no \"=\"";
    if (!section) return "comes before the first [section]";
    const std::string_view name = cutUpTo(line, '=');
    const std::string_view text = trim(line);
    if (text.empty()) return "has no text";
    if (text.size() > kMaxTextLength) return "is too long";
    (*section)[std::string(name)] = text;
    return nullptr;
}

}  // namespace

LanguageFile parseLanguageFile(std::string_view bytes) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.size() > kMaxLanguageFile) return {{}, "the file is too large"};
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    LanguageFile file;
    TextSection* section = nullptr;
    for (int number = 1; !bytes.empty(); ++number) {
        const std::string_view line = cutUpTo(bytes, '\n');
        const bool isText = std::none_of(line.begin(), line.end(), [](unsigned char letter) {
            return letter < ' ' && letter != '\t';
        });
        const char* const problem = isText ? takeLine(line, file, section) : "is not text";
        if (problem) return {{}, inLine(number, problem)};
    }
    return file;
}

std::string takeTexts(const LanguageFile& file, std::string_view section,
                      const std::vector<NamedText>& texts) {
    const auto found = file.sections.find(section);
    if (found == file.sections.end()) return {};
    const auto wanted = [&](const NamedText& entry) {
        const auto text = found->second.find(entry.name);
        return text == found->second.end() ? nullptr : &text->second;
    };
    for (const NamedText& entry : texts) {
        const std::string* const text = wanted(entry);
        if (!text) continue;
        const auto places = placesIn(*entry.text);
        for (const char place : placesIn(*text)) {
            if (places.contains(place)) continue;
            return std::string(entry.name) + " has {" + place + "}, and English does not";
        }
    }
    for (const NamedText& entry : texts) {
        if (const std::string* const text = wanted(entry)) *entry.text = *text;
    }
    return {};
}

}  // namespace jsw::common
