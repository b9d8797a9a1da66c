// sources: PublicLib/ini/IniText.cpp
// corpus: settings
//
// The first two bytes are the buffer's size, the next two the length that the profile functions
// report, the rest what they write. In any case names and values must be inside the buffer and in
// the ranges that the installation relies on.
#include "PublicLib/ini/IniText.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

void expect(bool holds) {
    if (!holds) std::abort();
}

std::uint32_t takeSize(const std::uint8_t*& data, std::size_t& size) {
    if (size < 2) return 0;
    const std::uint32_t value = data[0] + 256U * data[1];
    data += 2;
    size -= 2;
    return value;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::uint32_t bufferSize = takeSize(data, size) % 4096;
    const std::uint32_t reported = takeSize(data, size);
    std::vector<char> buffer(bufferSize);
    const auto fetch = [&](char* bytes, std::uint32_t room) {
        std::memset(bytes, 'x', room);  // the functions may leave anything there
        std::memcpy(bytes, data, std::min<std::size_t>(room, size));
        return reported;
    };
    const std::string_view filled = jsw::filledPart(buffer.data(), bufferSize, fetch);
    expect(filled.size() <= bufferSize);

    std::size_t total = 0;
    for (const std::string& name : jsw::splitNameList(filled)) {
        expect(!name.empty() && name.find('\0') == std::string::npos);
        total += name.size() + 1;
        const jsw::IniTypedValue value = jsw::splitTypedValue(name);
        expect(value.hasType ? value.text.size() < name.size() : value.text.empty());
        if (value.type == jsw::IniValueType::dword) jsw::leadingNumber(value.text);
    }
    expect(total <= filled.size() + 1);
    return 0;
}
