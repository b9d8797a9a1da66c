#pragma once

#include <string>

namespace jsw::test {

/// A folder of its own that goes, with everything in it, when the object goes.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Without a trailing backslash.
    const std::string& path() const { return path_; }
    /// Full path of a name in the folder, which may contain sub-folders.
    std::string file(const std::string& name) const { return path_ + "\\" + name; }
    /// Writes a file, creating sub-folders; answers its full path.
    std::string write(const std::string& name, const std::string& content) const;

  private:
    std::string path_;
};

/// The whole content of a file; empty when it cannot be read.
std::string readFile(const std::string& path);

}  // namespace jsw::test
