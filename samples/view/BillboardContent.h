/**
 * @file BillboardContent.h
 * The content of a billboard file (see docs/billboard-format.md) as plain data.
 */
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sampleview {

/** Limits of a billboard file; a file that exceeds one is not shown. Sizes in bytes. */
inline constexpr std::size_t kMaxFileSize = 65536;
inline constexpr std::size_t kMaxTitleLength = 120;
inline constexpr std::size_t kMaxLabelLength = 40;
inline constexpr std::size_t kMaxParagraphLength = 2000;
inline constexpr std::size_t kMaxParagraphs = 20;
inline constexpr std::size_t kMaxButtons = 3;
inline constexpr int kMaxActionId = 99;

/** Largest width and height of a picture file, in pixels. */
inline constexpr std::int64_t kMaxPictureSide = 2000;

enum class Theme { blue, green, amber, violet };

enum class Picture { none, printer, drop, bulb, ink, file };

/** A button on the page: what the view reports to its host when it is pressed. */
struct ContentButton {
    std::string label;
    std::string action;
    int actionId = 0; /**< 0 to kMaxActionId */
};

struct Page {
    std::string title;
    Theme theme = Theme::blue;
    Picture picture = Picture::none;
    std::string pictureFile; /**< name without a folder; only with Picture::file */
    std::vector<std::string> paragraphs;
    std::vector<ContentButton> buttons;
};

struct ParsedPage {
    Page page;           /**< meaningful only without a problem */
    std::string problem; /**< empty when the file is good */
};

/** Reads the text of a billboard file. Never throws for a malformed text; see ParsedPage. */
[[nodiscard]] ParsedPage parseBillboard(std::string_view text);

/** The page to show in place of one that has a problem. */
[[nodiscard]] Page unshowablePage(const std::string& problem);

/**
 * Whether the first bytes of a .bmp file announce a picture within kMaxPictureSide. Checked before
 * the file is loaded, as a few bytes can announce a picture of gigabytes.
 */
[[nodiscard]] bool isPictureHeaderAcceptable(std::string_view header);

}  // namespace sampleview
