#include "tools/jswctl/content/GatherContent.h"

#include "PublicLib/text/Text.h"
#include "PublicLib/win/Paths.h"
#include "samples/common/XmlFile.h"
#include "window/ui/Text.h"
#include "window/view/BillboardFile.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace jsw::ctl {

namespace {

std::string readStart(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes(view::kMaxFileSize + 1, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

/// What the page's parser discards: names of unknown themes and pictures.
std::map<std::string, std::string> readHead(const std::string& text) {
    std::map<std::string, std::string> head;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line) && !sample::trim(line).empty();) {
        const std::size_t equals = line.find('=');
        if (line.front() == '#' || equals == std::string::npos) continue;
        head[toLower(sample::trim(line.substr(0, equals)))] = sample::trim(line.substr(equals + 1));
    }
    return head;
}

ContentPage readPage(const std::filesystem::path& path) {
    ContentPage page;
    page.name = page.fileName = path.filename().string();
    const std::string inLanguage = path.stem().extension().string();  // ".de"
    if (inLanguage.size() == 3 && std::islower(static_cast<unsigned char>(inLanguage[1])) != 0 &&
        std::islower(static_cast<unsigned char>(inLanguage[2])) != 0) {
        page.language = inLanguage.substr(1);
        page.name = path.stem().stem().string() + path.extension().string();
    }
    const std::string bytes = readStart(path);
    const std::string text = ui::isUtf8(bytes) ? bytes : ui::utf8FromAnsi(bytes);
    page.parsed = view::parseBillboard(text);
    page.head = readHead(text);
    return page;
}

ContentFile readXml(const std::string& folder, const char* name) {
    ContentFile file;
    file.root = sample::readXmlFile(joinPath(folder, name), file.problem);
    return file;
}

}  // namespace

ContentFacts gatherContent(const std::string& folder) {
    ContentFacts facts;
    facts.folder = folder;
    facts.catalog = readXml(folder, "catalog.xml");
    facts.rules = readXml(folder, "rules.xml");
    std::error_code none;  // a missing folder has no pages
    for (const auto& entry :
         std::filesystem::directory_iterator(joinPath(folder, "Scripts"), none)) {
        const std::string ending = toLower(entry.path().extension().string());
        const std::string name = entry.path().filename().string();
        if (ending == ".jbb") facts.pages.push_back(readPage(entry.path()));
        if (ending == ".bmp") {
            facts.pictures[toLower(name)] =
                view::isPictureFileAcceptable(view::scriptPath(folder, name));
        }
    }
    std::sort(facts.pages.begin(), facts.pages.end(),
              [](const auto& left, const auto& right) { return left.fileName < right.fileName; });
    return facts;
}

}  // namespace jsw::ctl
