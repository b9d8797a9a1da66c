#include "tools/jswctl/module/PeFile.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace jsw::ctl {

namespace {

// Offsets and sizes of the file format. "Optional header" is the format's term; programs always
// have one.
constexpr std::size_t kHeaderOffsetField = 0x3C;
constexpr std::size_t kFileHeader = 4;       // after the signature "PE\0\0"
constexpr std::size_t kOptionalHeader = 24;  // after the signature
constexpr std::size_t kSectionCountField = 6;
constexpr std::size_t kOptionalSizeField = 20;
constexpr std::size_t kCharacteristicsField = 22;
constexpr std::uint16_t kDllFlag = 0x2000;
constexpr std::uint16_t kOptionalMagic32 = 0x10B;
constexpr std::uint16_t kOptionalMagic64 = 0x20B;
constexpr std::size_t kDirectories32 = 96;
constexpr std::size_t kDirectories64 = 112;
constexpr std::size_t kDirectorySize = 8;
constexpr std::size_t kSectionSize = 40;
constexpr std::size_t kImportDescriptorSize = 20;
constexpr std::size_t kLongestName = 4096;

enum Directory { kExports = 0, kImports = 1 };

struct Damage : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Section {
    std::uint32_t address;
    std::uint32_t size;
    std::uint32_t offset;
};

/// Reads numbers and texts at positions that the file specifies; throws Damage outside the bytes.
class Reader {
  public:
    explicit Reader(std::span<const char> bytes) : bytes_(bytes) {}

    template <class Number>
    Number number(std::size_t offset) const {
        if (offset > bytes_.size() || bytes_.size() - offset < sizeof(Number)) {
            throw Damage("it is truncated");
        }
        Number value{};
        std::memcpy(&value, bytes_.data() + offset, sizeof value);
        return value;
    }
    std::uint16_t word(std::size_t offset) const { return number<std::uint16_t>(offset); }
    std::uint32_t dword(std::size_t offset) const { return number<std::uint32_t>(offset); }

    std::string text(std::size_t offset) const {
        if (offset >= bytes_.size()) throw Damage("a name is outside the file");
        const auto rest = bytes_.subspan(offset, std::min(bytes_.size() - offset, kLongestName));
        const auto end = std::find(rest.begin(), rest.end(), '\0');
        if (end == rest.end()) throw Damage("a name has no end");
        return {rest.begin(), end};
    }

    /// The largest number of items of a size that fits into the file.
    std::size_t most(std::size_t itemSize) const { return bytes_.size() / itemSize; }

  private:
    std::span<const char> bytes_;
};

class PeReader {
  public:
    PeReader(std::span<const char> bytes, PeFile& file) : reader_(bytes), file_(file) {}

    void read() {
        if (reader_.word(0) != 0x5A4D) throw Damage("it is not a Windows program or library");
        header_ = reader_.dword(kHeaderOffsetField);
        if (reader_.dword(header_) != 0x4550)
            throw Damage("it is not a Windows program or library");
        file_.machine = reader_.word(header_ + kFileHeader);
        file_.isDll = (reader_.word(header_ + kCharacteristicsField) & kDllFlag) != 0;
        readSections();
        readExports();
        readImports();
    }

  private:
    void readSections() {
        const std::size_t count = reader_.word(header_ + kSectionCountField);
        const std::size_t first =
            header_ + kOptionalHeader + reader_.word(header_ + kOptionalSizeField);
        for (std::size_t index = 0; index < count; ++index) {
            const std::size_t at = first + index * kSectionSize;
            sections_.push_back(
                {reader_.dword(at + 12), reader_.dword(at + 16), reader_.dword(at + 20)});
        }
    }

    /// Address of a directory in the loaded image; 0 if the file has none.
    std::uint32_t directory(Directory which) const {
        const std::size_t optional = header_ + kOptionalHeader;
        const std::uint16_t magic = reader_.word(optional);
        if (magic != kOptionalMagic32 && magic != kOptionalMagic64) {
            throw Damage("its header is unknown");
        }
        const std::size_t directories =
            optional + (magic == kOptionalMagic64 ? kDirectories64 : kDirectories32);
        if (reader_.dword(directories - 4) <= static_cast<std::uint32_t>(which)) return 0;
        return reader_.dword(directories + which * kDirectorySize);
    }

    /// The position in the file of an address in the loaded image.
    std::size_t offset(std::uint32_t address) const {
        for (const Section& section : sections_) {
            if (address >= section.address && address - section.address < section.size) {
                return std::size_t{section.offset} + (address - section.address);
            }
        }
        throw Damage("a table is outside its sections");
    }

    void readExports() {
        const std::uint32_t address = directory(kExports);
        if (address == 0) return;
        const std::size_t table = offset(address);
        const std::size_t count = reader_.dword(table + 24);
        if (count > reader_.most(sizeof(std::uint32_t))) throw Damage("it has too many exports");
        if (count == 0) return;
        const std::size_t names = offset(reader_.dword(table + 32));
        for (std::size_t index = 0; index < count; ++index) {
            const std::uint32_t name = reader_.dword(names + index * sizeof(std::uint32_t));
            file_.exports.push_back(reader_.text(offset(name)));
        }
    }

    void readImports() {
        const std::uint32_t address = directory(kImports);
        if (address == 0) return;
        const std::size_t table = offset(address);
        const std::size_t most = reader_.most(kImportDescriptorSize);
        for (std::size_t index = 0; index < most; ++index) {
            const std::uint32_t name = reader_.dword(table + index * kImportDescriptorSize + 12);
            if (name == 0) return;
            file_.imports.push_back(reader_.text(offset(name)));
        }
        throw Damage("its list of imports has no end");
    }

    Reader reader_;
    PeFile& file_;
    std::size_t header_ = 0;
    std::vector<Section> sections_;
};

}  // namespace

PeFile readPeFile(std::span<const char> bytes) {
    PeFile file;
    try {
        PeReader(bytes, file).read();
    } catch (const Damage& damage) {
        file.problem = damage.what();
    }
    return file;
}

}  // namespace jsw::ctl
