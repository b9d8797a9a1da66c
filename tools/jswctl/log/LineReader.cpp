#include "tools/jswctl/log/LineReader.h"

#include <algorithm>

namespace jsw::ctl::log {

namespace {

constexpr std::size_t kBufferSize = std::size_t{256} * 1024;

}  // namespace

LineReader::LineReader(std::istream& input) : input_(input), buffer_(kBufferSize, '\0') {
}

bool LineReader::next() {
    line_.clear();
    cut_ = false;
    ended_ = false;
    std::size_t read = 0;
    while (!ended_ && read < kMaxPart && (!rest_.empty() || fill())) {
        const std::size_t end = rest_.find('\n');
        ended_ = end != std::string_view::npos;
        const std::string_view part = rest_.substr(0, end);
        append(part);
        read += part.size() + (ended_ ? 1 : 0);
        rest_.remove_prefix(part.size() + (ended_ ? 1 : 0));
    }
    if (read == 0) return false;
    if (line_.ends_with('\r')) line_.pop_back();
    ++number_;
    return true;
}

bool LineReader::fill() {
    input_.read(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    const auto count = static_cast<std::size_t>(std::max<std::streamsize>(input_.gcount(), 0));
    bytes_ += count;
    rest_ = std::string_view(buffer_).substr(0, count);
    return count != 0;
}

void LineReader::append(std::string_view part) {
    const std::size_t room = kMaxLength - line_.size();
    cut_ = cut_ || part.size() > room;
    line_.append(part.substr(0, room));
}

}  // namespace jsw::ctl::log
