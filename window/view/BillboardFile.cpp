#include "window/view/BillboardFile.h"

#include "window/ui/Text.h"
#include "window/view/WindowContent.h"

#include <fstream>
#include <ios>
#include <optional>
#include <utility>

namespace jsw::view {
namespace {

/** The first bytes of a file, at most limit; nothing if it cannot be read. */
std::optional<std::string> readStart(const std::string& path, std::size_t limit) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    std::string bytes(limit, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (file.bad()) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

/** "welcome.jbb" in German is "welcome.de.jbb". */
std::string nameInLanguage(const std::string& fileName, const char* code) {
    const auto dot = fileName.rfind('.');
    if (dot == std::string::npos) return fileName;
    return fileName.substr(0, dot + 1) + code + fileName.substr(dot);
}

/** Plain ASCII is valid in both encodings. */
std::string asUtf8(std::string text) {
    return ui::isUtf8(text) ? std::move(text) : ui::utf8FromAnsi(text);
}

}  // namespace

std::string scriptPath(const std::string& dataPath, const std::string& fileName) {
    return dataPath + "\\Scripts\\" + fileName;
}

Page loadBillboard(const std::string& dataPath, const std::string& fileName,
                   const Language& language) {
    const Strings& strings = language.strings();
    // Without a folder the path would name the root of a drive.
    if (dataPath.empty() || fileName.empty()) return emptyPage(strings);
    auto text = readStart(scriptPath(dataPath, nameInLanguage(fileName, language.code())),
                          kMaxFileSize + 1);
    if (!text) text = readStart(scriptPath(dataPath, fileName), kMaxFileSize + 1);
    const auto unshowable = [&](Problem problem) {
        return unshowablePage(ui::utf8FromAnsi(fileName), problem, strings);
    };
    if (!text) return unshowable(Problem::unreadable);
    // Checked before the conversion to UTF-8, which may lengthen it.
    if (text->size() > kMaxFileSize) return unshowable(Problem::tooLarge);
    const ParsedPage parsed = parseBillboard(asUtf8(std::move(*text)));
    return parsed.problem == Problem::none ? parsed.page : unshowable(parsed.problem);
}

bool isPictureFileAcceptable(const std::string& path) {
    constexpr std::size_t kHeaderSize = 54;
    const auto header = readStart(path, kHeaderSize);
    return header && isPictureHeaderAcceptable(*header);
}

}  // namespace jsw::view
