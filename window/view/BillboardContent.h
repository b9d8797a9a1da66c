/**
 * @file BillboardContent.h
 * The content of a billboard file (see docs/billboard-format.md) as plain data.
 */
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jsw::window {

/** Limits of a billboard file; a file that exceeds one is not shown. Sizes in bytes. */
inline constexpr std::size_t kMaxFileSize = 65536;
inline constexpr std::size_t kMaxTitleLength = 120;
inline constexpr std::size_t kMaxLabelLength = 40;
inline constexpr std::size_t kMaxParagraphLength = 2000;
inline constexpr std::size_t kMaxParagraphs = 20;
inline constexpr std::size_t kMaxButtons = 3;
inline constexpr std::size_t kMaxLinks = 6;
inline constexpr int kMaxActionId = 99;

/** Largest width and height of a picture file, in pixels. */
inline constexpr std::int64_t kMaxPictureSide = 2000;

enum class Theme { blue, green, amber, violet };

enum class Picture { none, printer, drop, bulb, ink, file };

/** A button or link on the page, and what the view reports when it is pressed. */
struct ContentButton {
    std::string label;
    std::string action;
    int actionId = 0; /**< 0 to kMaxActionId */
};

/** A run of plain text, or a link in the text. */
struct Piece {
    std::string text;
    std::optional<std::size_t> link; /**< index in Page::links; then text is its label */
    bool operator==(const Piece&) const = default;
};

struct Paragraph {
    bool isItem = false; /**< of a list */
    std::vector<Piece> pieces;
    bool operator==(const Paragraph&) const = default;
};

/** A paragraph that is one run of plain text. */
[[nodiscard]] Paragraph plainParagraph(std::string text);

/** The paragraph's text, including links. */
[[nodiscard]] std::string textOf(const Paragraph& paragraph);

/** A page; texts are in the file's encoding. */
struct Page {
    std::string title;
    Theme theme = Theme::blue;
    Picture picture = Picture::none;
    std::string pictureFile; /**< name without a folder; only with Picture::file */
    std::vector<Paragraph> paragraphs;
    std::vector<ContentButton> buttons;
    std::vector<ContentButton> links; /**< in the order of the text; labels are in the pieces */
};

/** Why a page cannot be shown, and how its author is told. */
#define JSW_PAGE_PROBLEMS(PROBLEM)                                                \
    PROBLEM(unreadable, "the file cannot be read")                                \
    PROBLEM(tooLarge, "the file is too large")                                    \
    PROBLEM(notText, "the file is not a text file")                               \
    PROBLEM(noTitle, "the file has no title")                                     \
    PROBLEM(noEqualsSign, "a line before the first empty line has no \"=\"")      \
    PROBLEM(titleTooLong, "the title is too long")                                \
    PROBLEM(paragraphTooLong, "a paragraph is too long")                          \
    PROBLEM(tooManyParagraphs, "there are too many paragraphs")                   \
    PROBLEM(badButton, "a button is not of the form \"Label | ACTION | number\"") \
    PROBLEM(tooManyButtons, "there are too many buttons")                         \
    PROBLEM(badLink, "a link is not of the form \"[Label | ACTION | number]\"")   \
    PROBLEM(tooManyLinks, "there are too many links")

#define JSW_PROBLEM(name, english) name,
enum class Problem { none, JSW_PAGE_PROBLEMS(JSW_PROBLEM) };
#undef JSW_PROBLEM

struct ParsedPage {
    Page page; /**< valid only without a problem */
    Problem problem = Problem::none;
};

/** Reads the text of a billboard file. Never throws for a malformed text; see ParsedPage. */
[[nodiscard]] ParsedPage parseBillboard(std::string_view text);

/**
 * Whether the header of a .bmp or .png file has a size within kMaxPictureSide. Checked before
 * loading, because a few bytes can specify a picture of gigabytes.
 */
[[nodiscard]] bool isPictureHeaderAcceptable(std::string_view header);

}  // namespace jsw::window
