#include "tests/support/GuardedBuffer.h"
#include "tests/support/TempFolder.h"
#include "tools/jswctl/module/ModuleKinds.h"
#include "tools/jswctl/module/PeFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace jsw::ctl {
namespace {

using test::GuardedBuffer;

PeFile readGuarded(const std::string& bytes) {
    const GuardedBuffer buffer(bytes);
    return readPeFile({buffer.data(), buffer.size()});
}

/// A real module; the tests run in the folder of the programs.
std::string module() {
    static const std::string bytes = test::readFile("scripted_catalog.dll");
    return bytes;
}

TEST(PeFileTest, ARealModuleTellsWhatItIsAndNeeds) {
    const PeFile file = readGuarded(module());
    EXPECT_EQ(file.problem, "");
    EXPECT_EQ(file.machine, kMachineX64);
    EXPECT_TRUE(file.isDll);
    for (const char* name : findModuleKind("catalog")->entryPoints) {
        EXPECT_NE(std::find(file.exports.begin(), file.exports.end(), name), file.exports.end())
            << name;
    }
    EXPECT_NE(std::find(file.imports.begin(), file.imports.end(), "KERNEL32.dll"),
              file.imports.end());
    EXPECT_FALSE(readGuarded(test::readFile("qldemo.exe")).isDll);
}

TEST(PeFileTest, EveryCutIsNoticedAndNothingIsReadBeyondIt) {
    const std::string whole = module();
    ASSERT_GT(whole.size(), 4096U);
    for (std::size_t size = 0; size < 1536; ++size) {
        EXPECT_NE(readGuarded(whole.substr(0, size)).problem, "") << size;
    }
    for (std::size_t size = 2048; size < whole.size() / 2; size += whole.size() / 16) {
        readGuarded(whole.substr(0, size));
    }
}

/// Every number of the headers, including the positions and sizes of all tables, and every number
/// of the export and import tables, replaced by extreme values.
TEST(PeFileTest, WildNumbersLeadNowhere) {
    const std::string whole = module();
    const GuardedBuffer buffer(whole);
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < 1024; place += 2) places.push_back(place);
    const std::size_t names =
        whole.find("GetBillboardActions");  // the export names follow their table
    ASSERT_NE(names, std::string::npos);
    for (std::size_t place = names - 256; place < names; place += 4) places.push_back(place);
    for (const std::size_t place : places) {
        for (const std::uint32_t wild : {0xFFFFFFFFU, 0x7FFFFFFFU, 0x00FFFFFFU, 0U, 1U}) {
            std::memcpy(buffer.data() + place, &wild, sizeof wild);
            const PeFile file = readPeFile({buffer.data(), buffer.size()});
            EXPECT_LE(file.exports.size(), whole.size() / 4) << place;
            std::memcpy(buffer.data() + place, whole.data() + place, sizeof wild);
        }
    }
    EXPECT_EQ(readPeFile({buffer.data(), buffer.size()}).problem, "");
}

}  // namespace
}  // namespace jsw::ctl
