#include "tests/support/TempFolder.h"

#include "PublicLib/text/Text.h"

#include <windows.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace jsw::test {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    static std::atomic<int> count{0};
    const std::string name =
        concat("jswtest-", GetCurrentProcessId(), "-", GetTickCount(), "-", ++count);
    const fs::path folder = fs::temp_directory_path() / name;
    fs::create_directories(folder);
    path_ = folder.string();
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string TempFolder::write(const std::string& name, const std::string& content) const {
    const fs::path path = file(name);
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
    return path.string();
}

std::string readFile(const std::string& path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

}  // namespace jsw::test
