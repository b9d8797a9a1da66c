#pragma once

#include <cstdint>
#include <memory>
#include <new>
#include <string_view>

namespace jsw {

/// A buffer that the profile functions of Windows fill, or nothing when there is no memory for it.
class ProfileBuffer {
  public:
    explicit ProfileBuffer(std::uint32_t size) : bytes_(new (std::nothrow) char[size]) {
        if (bytes_) size_ = size;
    }

    explicit operator bool() const { return bytes_ != nullptr; }

    /// Clears the buffer, lets fetch(buffer, size) fill it and answers what came: as many bytes as
    /// fetch reports, at most the whole buffer. Good until the buffer is filled again.
    template <class Fetch>
    std::string_view filledBy(const Fetch& fetch) {
        if (size_ == 0) return {};
        bytes_[0] = '\0';  // clear enough: only what fetch reports is looked at
        const std::uint32_t length = fetch(bytes_.get(), size_);
        return {bytes_.get(), length < size_ ? length : size_};
    }

  private:
    std::unique_ptr<char[]> bytes_;
    std::uint32_t size_ = 0;
};

}  // namespace jsw
