#include "window/view/BillboardContent.h"

#include "common/Letters.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace jsw::window {
namespace {

template <typename Value>
struct Named {
    std::string_view name;
    Value value;
};

constexpr Named<Theme> kThemes[] = {
    {"blue", Theme::blue},
    {"green", Theme::green},
    {"amber", Theme::amber},
    {"violet", Theme::violet},
};

constexpr Named<Picture> kPictures[] = {
    {"printer", Picture::printer},
    {"drop", Picture::drop},
    {"bulb", Picture::bulb},
    {"ink", Picture::ink},
};

constexpr std::string_view kPictureFileEndings[] = {".bmp", ".png"};

template <typename Value, std::size_t count>
Value valueNamed(const Named<Value> (&table)[count], std::string_view name, Value otherwise) {
    const std::string wanted = common::toLower(name);
    const auto found = std::find_if(std::begin(table), std::end(table),
                                    [&](const auto& entry) { return entry.name == wanted; });
    return found == std::end(table) ? otherwise : found->value;
}

bool isControlCharacter(unsigned char character) {
    return character < ' ' && character != '\t' && character != '\r' && character != '\n';
}

/** A name without a folder or drive, so that a page uses only pictures beside itself. */
bool isPictureFileName(std::string_view name) {
    const std::string lower = common::toLower(name);
    const bool hasEnding = std::any_of(
        std::begin(kPictureFileEndings), std::end(kPictureFileEndings),
        [&](auto ending) { return lower.size() > ending.size() && lower.ends_with(ending); });
    return hasEnding && lower.find_first_of("\\/:") == std::string::npos;
}

bool isActionName(std::string_view name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](unsigned char character) {
        return std::isalpha(character) || character == '_';
    });
}

/** Builds the page line by line; every step returns its problem, if any. */
class PageBuilder {
  public:
    Problem takeHeaderLine(std::string_view line) {
        if (line.starts_with('#')) return Problem::none;
        const auto equals = line.find('=');
        if (equals == std::string_view::npos) return Problem::noEqualsSign;
        const std::string key = common::toLower(common::trim(line.substr(0, equals)));
        const std::string_view value = common::trim(line.substr(equals + 1));
        if (key == "title") return takeTitle(value);
        if (key == "theme") page_.theme = valueNamed(kThemes, value, Theme::blue);
        if (key == "picture") takePicture(value);
        if (key == "button") return takeButton(value);
        return Problem::none;
    }

    Problem takeTextLine(std::string_view line) {
        if (line.empty()) {
            inParagraph_ = false;
            return Problem::none;
        }
        const bool startsItem = line.starts_with("- ");
        if (!inParagraph_ || startsItem) {
            if (texts_.size() == kMaxParagraphs) return Problem::tooManyParagraphs;
            texts_.emplace_back(line);
            inParagraph_ = true;
        } else {
            texts_.back().append(" ").append(line);
        }
        return texts_.back().size() > kMaxParagraphLength ? Problem::paragraphTooLong
                                                          : Problem::none;
    }

    /** Finds the links in the paragraphs; the last step. */
    Problem finish() {
        if (page_.title.empty()) return Problem::noTitle;
        for (const std::string_view text : texts_) {
            Paragraph paragraph;
            paragraph.isItem = text.starts_with("- ");
            const Problem problem = takePieces(text.substr(paragraph.isItem ? 2 : 0), paragraph);
            if (problem != Problem::none) return problem;
            page_.paragraphs.push_back(std::move(paragraph));
        }
        return Problem::none;
    }

    [[nodiscard]] Page take() { return std::move(page_); }

  private:
    Problem takeTitle(std::string_view value) {
        if (value.size() > kMaxTitleLength) return Problem::titleTooLong;
        page_.title = value;
        return Problem::none;
    }

    void takePicture(std::string_view value) {
        const bool isFile = isPictureFileName(value);
        page_.picture = isFile ? Picture::file : valueNamed(kPictures, value, Picture::none);
        page_.pictureFile = isFile ? std::string(value) : std::string();
    }

    /** Label, action and number, separated by "|"; nothing if the text has another form. */
    static std::optional<ContentButton> readAction(std::string_view value) {
        ContentButton button;
        button.label = common::cutUpTo(value, '|');
        button.action = common::cutUpTo(value, '|');
        const std::string_view number = common::trim(value);
        const auto [end, error] =
            std::from_chars(number.data(), number.data() + number.size(), button.actionId);
        const bool isNumber = error == std::errc() && end == number.data() + number.size();
        const bool isGood = !button.label.empty() && button.label.size() <= kMaxLabelLength &&
                            isActionName(button.action) && isNumber && button.actionId >= 0 &&
                            button.actionId <= kMaxActionId;
        return isGood ? std::optional(std::move(button)) : std::nullopt;
    }

    Problem takeButton(std::string_view value) {
        if (page_.buttons.size() == kMaxButtons) return Problem::tooManyButtons;
        auto button = readAction(value);
        if (!button) return Problem::badButton;
        page_.buttons.push_back(std::move(*button));
        return Problem::none;
    }

    /** Brackets without a "|" in them are plain text. */
    Problem takePieces(std::string_view text, Paragraph& paragraph) {
        while (!text.empty()) {
            const auto open = text.find('[');
            const auto close = open == text.npos ? text.npos : text.find(']', open);
            const std::string_view inside =
                close == text.npos ? "" : text.substr(open + 1, close - open - 1);
            if (inside.find('|') == inside.npos) {
                const std::string_view plain =
                    text.substr(0, close == text.npos ? text.npos : close + 1);
                addText(paragraph, plain);
                text.remove_prefix(plain.size());
                continue;
            }
            if (page_.links.size() == kMaxLinks) return Problem::tooManyLinks;
            auto link = readAction(inside);
            if (!link) return Problem::badLink;
            addText(paragraph, text.substr(0, open));
            paragraph.pieces.push_back({link->label, page_.links.size()});
            page_.links.push_back(std::move(*link));
            text.remove_prefix(close + 1);
        }
        return Problem::none;
    }

    static void addText(Paragraph& paragraph, std::string_view text) {
        if (text.empty()) return;
        if (paragraph.pieces.empty() || paragraph.pieces.back().link) {
            paragraph.pieces.push_back({"", std::nullopt});
        }
        paragraph.pieces.back().text += text;
    }

    Page page_;
    std::vector<std::string> texts_; /**< of the paragraphs, as in the file */
    bool inParagraph_ = false;
};

/** The whole number in four bytes, the one with the highest value last. */
std::uint32_t littleEndian32(std::string_view bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
}

bool isSideAcceptable(std::int64_t side) {
    return side > 0 && side <= kMaxPictureSide;
}

}  // namespace

ParsedPage parseBillboard(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.size() > kMaxFileSize) return {{}, Problem::tooLarge};
    if (std::any_of(text.begin(), text.end(), isControlCharacter)) {
        return {{}, Problem::notText};
    }
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());

    PageBuilder builder;
    bool inHeader = true;
    while (!text.empty()) {
        const std::string_view line = common::cutUpTo(text, '\n');
        if (inHeader && line.empty()) {
            inHeader = false;
            continue;
        }
        const Problem problem =
            inHeader ? builder.takeHeaderLine(line) : builder.takeTextLine(line);
        if (problem != Problem::none) return {{}, problem};
    }
    const Problem problem = builder.finish();
    if (problem != Problem::none) return {{}, problem};
    return {builder.take(), Problem::none};
}

Paragraph plainParagraph(std::string text) {
    return {false, {{std::move(text), std::nullopt}}};
}

std::string textOf(const Paragraph& paragraph) {
    std::string text;
    for (const Piece& piece : paragraph.pieces) text += piece.text;
    return text;
}

bool isPictureHeaderAcceptable(std::string_view header) {
    constexpr std::string_view kPng = "\x89PNG\r\n\x1A\n";
    constexpr std::size_t kSidesOfPng = 16;
    constexpr std::size_t kSidesOfBitmap = 18;
    if (header.starts_with(kPng) && header.size() >= kSidesOfPng + 8) {
        std::string sides(header.substr(kSidesOfPng, 8));
        std::reverse(sides.begin(), sides.end());  // the highest byte is the first here
        return isSideAcceptable(littleEndian32(sides)) &&
               isSideAcceptable(littleEndian32(std::string_view(sides).substr(4)));
    }
    if (!header.starts_with("BM") || header.size() < kSidesOfBitmap + 8) return false;
    const auto side = [&](std::size_t offset) {
        return std::int64_t{static_cast<std::int32_t>(littleEndian32(header.substr(offset)))};
    };
    // A negative height is a picture stored from top to bottom.
    return isSideAcceptable(side(kSidesOfBitmap)) &&
           isSideAcceptable(std::abs(side(kSidesOfBitmap + 4)));
}

}  // namespace jsw::window
