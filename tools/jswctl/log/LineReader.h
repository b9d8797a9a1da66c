#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>
#include <string_view>

namespace jsw::ctl::log {

/// Reads a file of any size line by line in bounded memory. Ends of lines are "\n" or "\r\n".
class LineReader {
  public:
    /// The rest of a longer line is skipped.
    static constexpr std::size_t kMaxLength = std::size_t{32} * 1024;
    /// A line longer than this is returned in several parts.
    static constexpr std::size_t kMaxPart = std::size_t{1024} * 1024;

    /// @param input  opened in binary mode; must outlive the reader
    explicit LineReader(std::istream& input);

    /// Goes to the next line; false at the end of the file.
    bool next();

    /// The line without its end; valid until the next next().
    std::string_view line() const { return line_; }
    /// Counted from 1.
    std::uint64_t number() const { return number_; }
    /// Whether the line was longer than kMaxLength.
    bool isCut() const { return cut_; }
    /// Whether the line has an end; the last one, and parts of a long one, may have none.
    bool isEnded() const { return ended_; }
    /// Bytes read so far, ends of lines included.
    std::uint64_t bytes() const { return bytes_; }

  private:
    bool fill();
    void append(std::string_view part);

    std::istream& input_;
    std::string buffer_;
    std::string_view rest_;  // of the buffer
    std::string line_;
    std::uint64_t number_ = 0;
    std::uint64_t bytes_ = 0;
    bool cut_ = false;
    bool ended_ = false;
};

}  // namespace jsw::ctl::log
