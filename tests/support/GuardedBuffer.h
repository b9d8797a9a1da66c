#pragma once

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <span>

namespace jsw::test {

/// A copy of some bytes directly before a page without access, so that reading one byte too many
/// faults.
class GuardedBuffer {
  public:
    explicit GuardedBuffer(std::span<const char> content) : size_(content.size()) {
        SYSTEM_INFO system{};
        GetSystemInfo(&system);
        const std::size_t page = system.dwPageSize;
        const std::size_t used = (size_ + page - 1) / page * page;
        memory_.reset(static_cast<char*>(
            VirtualAlloc(nullptr, used + page, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE)));
        DWORD before = 0;
        if (!memory_ || !VirtualProtect(memory_.get() + used, page, PAGE_NOACCESS, &before)) {
            throw std::bad_alloc();
        }
        data_ = memory_.get() + used - size_;
        if (size_ > 0) std::memcpy(data_, content.data(), size_);
    }

    char* data() const { return data_; }
    std::size_t size() const { return size_; }

  private:
    struct Release {
        void operator()(char* memory) const { VirtualFree(memory, 0, MEM_RELEASE); }
    };

    std::size_t size_;
    std::unique_ptr<char, Release> memory_;
    char* data_ = nullptr;
};

}  // namespace jsw::test
