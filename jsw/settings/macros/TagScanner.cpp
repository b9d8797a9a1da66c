#include "jsw/settings/macros/TagScanner.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace jsw {

namespace {

/// The printable ASCII characters from space to "~" in code order, letters in one case. A table,
/// because the C library's functions follow the locale.
constexpr std::string_view kFolded =
    " !\"#$%&'()*+,-./0123456789:;<=>?"
    "@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_"
    "`ABCDEFGHIJKLMNOPQRSTUVWXYZ{|}~";
static_assert(kFolded.size() == '~' - ' ' + 1);

constexpr char foldCase(char character) {
    if (character < ' ' || character > '~') return character;
    return kFolded[static_cast<std::size_t>(character - ' ')];
}

bool hasLetter(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char character) {
        return foldCase(character) >= 'A' && foldCase(character) <= 'Z';
    });
}

/// Finds delimiters in a text.
class DelimiterSearch {
  public:
    explicit DelimiterSearch(const TagSyntax& syntax)
        : fold_(syntax.ignoreCase && (hasLetter(syntax.open) || hasLetter(syntax.close))) {}

    /// Position of a delimiter at or after "from"; npos when there is none.
    std::size_t find(std::string_view text, std::string_view delimiter, std::size_t from) const {
        if (!fold_) return text.find(delimiter, from);
        if (from > text.size()) return std::string_view::npos;
        const auto start = text.begin() + static_cast<std::ptrdiff_t>(from);
        const auto found =
            std::search(start, text.end(), delimiter.begin(), delimiter.end(),
                        [](char left, char right) { return foldCase(left) == foldCase(right); });
        return found == text.end() ? std::string_view::npos
                                   : static_cast<std::size_t>(found - text.begin());
    }

    /// Whether a delimiter may begin in the text, be it with an end in what follows the text.
    bool mayBegin(std::string_view delimiter, std::string_view text) const {
        return find(text, delimiter.substr(0, 1), 0) != std::string_view::npos;
    }

  private:
    bool fold_;  // delimiters without letters are the same in either case
};

/// The text that is still to be scanned. It is used up at the front, and values are put back there:
/// into the room that the used text left, so that nothing behind it moves.
class PendingText {
  public:
    explicit PendingText(std::string_view text) : rest_(text) {}

    std::string_view view() const { return rest_; }
    std::size_t size() const { return rest_.size(); }

    void drop(std::size_t length) { rest_.remove_prefix(length); }

    /// The value may be a part of what was dropped last.
    void prepend(std::string_view value) {
        if (room() < value.size()) {
            growAndPrepend(value);
            return;
        }
        char* const start = buffer_.data() + room() - value.size();
        std::char_traits<char>::move(start, value.data(), value.size());
        rest_ = {start, value.size() + size()};
    }

  private:
    /// None while the rest is still a part of the text that was given.
    std::size_t room() const {
        return buffer_.empty() ? 0 : static_cast<std::size_t>(rest_.data() - buffer_.data());
    }

    /// Leaves as much room as there is text, so that the text is seldom copied again.
    void growAndPrepend(std::string_view value) {
        const std::size_t room = value.size() + size();
        std::string larger;
        larger.reserve(2 * room);
        larger.append(room, '\0');
        larger.append(value);
        larger.append(rest_);
        buffer_ = std::move(larger);
        rest_ = std::string_view(buffer_).substr(room);
    }

    std::string_view rest_;
    std::string buffer_;
};

/// One text on its way from "pending" to "done". The search for the next tag always begins at the
/// front of the pending text.
class Expansion {
  public:
    Expansion(std::string_view text, const TagSyntax& syntax, const TagLimits& limits,
              ISymbolicResolverHandler& handler)
        : syntax_(syntax),
          search_(syntax),
          handler_(handler),
          pending_(text),
          originalLeft_(text.size()),
          nestedLeft_(limits.nestedReplacements),
          maxSize_(text.size() + limits.growth) {
        done_.reserve(text.size());
    }

    TagScanner::Result run() {
        bool complete = true;
        while (complete) {
            const std::size_t length = moveToNextTag();
            if (length == 0) break;
            complete = resolveTagOfLength(length);
        }
        done_.append(pending_.view());
        return {std::move(done_), complete};
    }

  private:
    void finish(std::size_t length) {
        done_.append(pending_.view().substr(0, length));
        drop(length);
    }

    void drop(std::size_t length) {
        pending_.drop(length);
        originalLeft_ = std::min(originalLeft_, pending_.size());
    }

    /// Finishes what lies before the next tag; answers the length of the tag, 0 when there is none.
    std::size_t moveToNextTag() {
        const std::size_t open = search_.find(pending_.view(), syntax_.open, 0);
        if (open == std::string_view::npos) return 0;
        finish(open);
        const std::size_t close = findClose();
        return close == std::string_view::npos ? 0 : close + syntax_.close.size();
    }

    /// The first closing delimiter after the opening one at the front. It is remembered: many
    /// opening delimiters may wait for the same far closing one.
    std::size_t findClose() {
        const std::size_t earliest = syntax_.open.size();
        if (closeFromEnd_ && *closeFromEnd_ + earliest <= pending_.size()) {
            return pending_.size() - *closeFromEnd_;
        }
        const std::size_t close = search_.find(pending_.view(), syntax_.close, earliest);
        if (close != std::string_view::npos) closeFromEnd_ = pending_.size() - close;
        return close;
    }

    /// Replaces the tag at the front, or steps over its first character when it stays. False when
    /// a limit forbids the replacement.
    bool resolveTagOfLength(std::size_t length) {
        const std::string_view tag = pending_.view().substr(0, length);
        const std::string_view name =
            tag.substr(syntax_.open.size(), length - syntax_.open.size() - syntax_.close.size());
        const std::string_view value = handler_.resolveTag(tag, name);
        if (isSame(value, tag)) {
            finish(1);
            return true;
        }
        if (!isAllowed(length, value.size())) return false;
        drop(length);
        if (!search_.mayBegin(syntax_.open, value)) {
            done_.append(value);
            return true;
        }
        pending_.prepend(value);
        closeFromEnd_.reset();  // the value may have brought a nearer one
        return true;
    }

    static bool isSame(std::string_view value, std::string_view tag) {
        if (value.size() != tag.size()) return false;
        return value.data() == tag.data() || value == tag;
    }

    bool isAllowed(std::size_t tagLength, std::size_t valueLength) {
        const bool nested = pending_.size() - tagLength >= originalLeft_;
        if (nested && nestedLeft_-- == 0) return false;
        return done_.size() + pending_.size() - tagLength + valueLength <= maxSize_;
    }

    const TagSyntax& syntax_;
    DelimiterSearch search_;
    ISymbolicResolverHandler& handler_;
    std::string done_;
    PendingText pending_;
    std::optional<std::size_t> closeFromEnd_;  // counted from the end, where nothing moves
    std::size_t originalLeft_;                 // characters of the given text at the end of pending
    std::size_t nestedLeft_;
    std::size_t maxSize_;
};

}  // namespace

TagScanner::Result TagScanner::replaceTags(std::string_view text) const {
    if (handler_ == nullptr) return {std::string(text)};
    return Expansion(text, syntax_, limits_, *handler_).run();
}

}  // namespace jsw
