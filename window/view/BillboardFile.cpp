#include "window/view/BillboardFile.h"

#include "common/Encoding.h"
#include "common/Files.h"
#include "window/view/WindowContent.h"

#include <optional>
#include <utility>
#include <vector>

namespace jsw::window {
namespace {

/** "welcome.jbb" in "de" is "welcome.de.jbb". */
std::string nameInLanguage(const std::string& fileName, const std::string& code) {
    const auto dot = fileName.rfind('.');
    if (dot == std::string::npos) return fileName;
    return fileName.substr(0, dot + 1) + code + fileName.substr(dot);
}

/** The file in the first of these languages that there is one for, else the one without. */
std::optional<std::string> readInLanguage(const std::string& dataPath, const std::string& fileName,
                                          const std::vector<std::string>& languages) {
    constexpr std::size_t kMost = kMaxFileSize + 1;
    for (const std::string& code : languages) {
        auto text = common::readStart(scriptPath(dataPath, nameInLanguage(fileName, code)), kMost);
        if (text) return text;
    }
    return common::readStart(scriptPath(dataPath, fileName), kMost);
}

/** Files of either encoding are well-formed for as long as they are plain English. */
std::string asUtf8(std::string text) {
    return common::isUtf8(text) ? std::move(text) : common::utf8FromAnsi(text);
}

}  // namespace

std::string scriptPath(const std::string& dataPath, const std::string& fileName) {
    return dataPath + "\\Scripts\\" + fileName;
}

Page loadBillboard(const std::string& dataPath, const std::string& fileName,
                   const std::vector<std::string>& languages, const WindowTexts& texts) {
    // Without a folder the path would name the root of a drive.
    if (dataPath.empty() || fileName.empty()) return emptyPage(texts);
    auto text = readInLanguage(dataPath, fileName, languages);
    const auto unshowable = [&](Problem problem) {
        return unshowablePage(common::utf8FromAnsi(fileName), problem, texts);
    };
    if (!text) return unshowable(Problem::unreadable);
    // Checked before the conversion to UTF-8, which may lengthen it.
    if (text->size() > kMaxFileSize) return unshowable(Problem::tooLarge);
    const ParsedPage parsed = parseBillboard(asUtf8(std::move(*text)));
    return parsed.problem == Problem::none ? parsed.page : unshowable(parsed.problem);
}

Cartridges loadCartridges(const std::string& dataPath, const std::vector<std::string>& languages) {
    auto text =
        dataPath.empty() ? std::nullopt : readInLanguage(dataPath, "cartridges.txt", languages);
    return text ? Cartridges(common::parseLanguageFile(asUtf8(std::move(*text)))) : Cartridges();
}

bool isPictureFileAcceptable(const std::string& path) {
    constexpr std::size_t kHeaderSize = 54;
    const auto header = common::readStart(path, kHeaderSize);
    return header && isPictureHeaderAcceptable(*header);
}

}  // namespace jsw::window
