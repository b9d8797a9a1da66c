#include "tools/jswctl/content/GatherContent.h"

#include "PublicLib/text/Text.h"
#include "PublicLib/win/Paths.h"
#include "common/Encoding.h"
#include "common/Files.h"
#include "common/Language.h"
#include "common/Letters.h"
#include "samples/common/XmlFile.h"
#include "window/view/BillboardFile.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <sstream>

namespace jsw::ctl {

namespace {

/// What the page's parser discards: names of unknown themes and pictures.
std::map<std::string, std::string> readHead(const std::string& text) {
    std::map<std::string, std::string> head;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line) && !common::trim(line).empty();) {
        const std::size_t equals = line.find('=');
        if (line.front() == '#' || equals == std::string::npos) continue;
        head[toLower(common::trim(line.substr(0, equals)))] = common::trim(line.substr(equals + 1));
    }
    return head;
}

std::string readUtf8(const std::filesystem::path& path) {
    const std::string bytes =
        common::readStart(path.string(), window::kMaxFileSize + 1).value_or("");
    return common::isUtf8(bytes) ? bytes : common::utf8FromAnsi(bytes);
}

ContentPage readPage(const std::filesystem::path& path) {
    ContentPage page;
    page.name = page.fileName = path.filename().string();
    const std::string inLanguage = path.stem().extension().string();         // ".de"
    const bool hasCountry = inLanguage.size() == 6 && inLanguage[3] == '-';  // ".pt-BR"
    if ((inLanguage.size() == 3 || hasCountry) &&
        std::islower(static_cast<unsigned char>(inLanguage[1])) != 0 &&
        std::islower(static_cast<unsigned char>(inLanguage[2])) != 0) {
        page.language = inLanguage.substr(1);
        page.name = path.stem().stem().string() + path.extension().string();
    }
    const std::string text = readUtf8(path);
    page.parsed = window::parseBillboard(text);
    page.head = readHead(text);
    return page;
}

ContentFile readXml(const std::string& folder, const char* name) {
    ContentFile file;
    file.root = sample::readXmlFile(joinPath(folder, name), file.problem);
    return file;
}

/// "de" of "jswtexts.de.txt"; nothing of other names.
std::string languageOf(const std::string& fileName) {
    std::string_view rest = fileName;
    const bool isLanguage = equalsIgnoringCase(common::cutUpTo(rest, '.'), "jswtexts");
    const std::string code(common::cutUpTo(rest, '.'));
    return isLanguage && equalsIgnoringCase(rest, "txt") ? code : std::string();
}

}  // namespace

ContentFacts gatherContent(const std::string& folder) {
    ContentFacts facts;
    facts.folder = folder;
    facts.catalog = readXml(folder, "catalog.xml");
    facts.rules = readXml(folder, "rules.xml");
    for (const auto& entry : std::filesystem::directory_iterator(common::moduleFolder(nullptr))) {
        const std::string code = languageOf(entry.path().filename().string());
        const auto file = code.empty() ? std::nullopt : common::readLanguage(code);
        if (file) facts.languages[code] = *file;
    }
    std::error_code none;  // a missing folder has no pages
    for (const auto& entry :
         std::filesystem::directory_iterator(joinPath(folder, "Scripts"), none)) {
        const std::string ending = toLower(entry.path().extension().string());
        const std::string name = entry.path().filename().string();
        if (ending == ".jbb") facts.pages.push_back(readPage(entry.path()));
        if (ending == ".txt" && toLower(name).starts_with("cartridges.")) {
            facts.cartridges[name] =
                window::Cartridges(common::parseLanguageFile(readUtf8(entry.path()))).problem();
        }
        if (ending == ".bmp" || ending == ".png") {
            facts.pictures[toLower(name)] =
                window::isPictureFileAcceptable(window::scriptPath(folder, name));
        }
    }
    std::sort(facts.pages.begin(), facts.pages.end(),
              [](const auto& left, const auto& right) { return left.fileName < right.fileName; });
    return facts;
}

}  // namespace jsw::ctl
