#include "samples/view/BillboardFile.h"

#include <fstream>
#include <ios>
#include <optional>

namespace sampleview {
namespace {

/** The first bytes of a file, at most limit; nothing when it cannot be read. */
std::optional<std::string> readStart(const std::string& path, std::size_t limit) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    std::string bytes(limit, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (file.bad()) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

Page emptyPage() {
    Page page;
    page.title = "Your document is being printed";
    page.picture = Picture::printer;
    page.paragraphs = {"There is no page to show for this print job."};
    return page;
}

}  // namespace

std::string scriptPath(const std::string& dataPath, const std::string& fileName) {
    return dataPath + "\\Scripts\\" + fileName;
}

Page loadBillboard(const std::string& dataPath, const std::string& fileName) {
    if (fileName.empty()) return emptyPage();
    const auto text = readStart(scriptPath(dataPath, fileName), kMaxFileSize + 1);
    if (!text) return unshowablePage("the file cannot be read");
    const ParsedPage parsed = parseBillboard(*text);
    return parsed.problem.empty() ? parsed.page : unshowablePage(parsed.problem);
}

bool isPictureFileAcceptable(const std::string& path) {
    constexpr std::size_t kHeaderSize = 54;
    const auto header = readStart(path, kHeaderSize);
    return header && isPictureHeaderAcceptable(*header);
}

}  // namespace sampleview
