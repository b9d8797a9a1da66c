#pragma once

#include <string>

namespace jsw::test {

/// A temporary folder, deleted with its contents by the destructor.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Without a trailing backslash.
    const std::string& path() const { return path_; }
    /// Full path of a name in the folder; it may contain subfolders.
    std::string file(const std::string& name) const { return path_ + "\\" + name; }
    /// Writes a file, creating subfolders; returns its full path.
    std::string write(const std::string& name, const std::string& content) const;

  private:
    std::string path_;
};

/// The contents of a file; empty if it cannot be read.
std::string readFile(const std::string& path);

}  // namespace jsw::test
