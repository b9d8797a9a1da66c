/**
 * @file PictureFile.h
 * The picture of a page, from a .bmp or .png file.
 */
#pragma once

#include "window/ui/Canvas.h"

#include <cstdint>
#include <string>
#include <vector>

namespace jsw::window {

/** The pixels of a picture file, with their opacity; the file itself is not kept open. */
class PictureFile {
  public:
    PictureFile() = default;
    /** Empty if the file cannot be read, is of another format or larger than kMaxPictureSide. */
    explicit PictureFile(const std::string& path);

    [[nodiscard]] bool empty() const { return pixels_.empty(); }
    /** Draws the picture as large as the area allows, keeping its proportions. */
    void paint(const Canvas& canvas, const Box& area) const;

  private:
    int width_ = 0;
    int height_ = 0;
    std::vector<std::uint32_t> pixels_;
};

}  // namespace jsw::window
