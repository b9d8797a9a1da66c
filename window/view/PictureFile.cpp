#include "window/view/PictureFile.h"

#include "common/Com.h"
#include "common/Encoding.h"
#include "window/view/BillboardFile.h"

#include <windows.h>

#include <algorithm>
#include <wincodec.h>
#include <wrl/client.h>

namespace jsw::window {
namespace {

using Microsoft::WRL::ComPtr;

/** The file's picture in the form that is drawn here; null if the system cannot read it. */
ComPtr<IWICBitmapSource> openPicture(const std::string& path) {
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    ComPtr<IWICFormatConverter> converter;
    const bool isOpen =
        SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                   __uuidof(IWICImagingFactory),
                                   reinterpret_cast<void**>(factory.GetAddressOf()))) &&
        SUCCEEDED(factory->CreateDecoderFromFilename(common::wideFromAnsi(path).c_str(), nullptr,
                                                     GENERIC_READ, WICDecodeMetadataCacheOnDemand,
                                                     decoder.GetAddressOf())) &&
        SUCCEEDED(decoder->GetFrame(0, frame.GetAddressOf())) &&
        SUCCEEDED(factory->CreateFormatConverter(converter.GetAddressOf())) &&
        SUCCEEDED(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppPBGRA,
                                        WICBitmapDitherTypeNone, nullptr, 0,
                                        WICBitmapPaletteTypeCustom));
    return isOpen ? converter : nullptr;
}

}  // namespace

PictureFile::PictureFile(const std::string& path) {
    // Before a decoder allocates what a few bytes announce.
    if (!isPictureFileAcceptable(path)) return;
    const common::ComScope com;
    const auto picture = com.ready() ? openPicture(path) : nullptr;
    UINT width = 0;
    UINT height = 0;
    if (!picture || FAILED(picture->GetSize(&width, &height))) return;
    if (width > kMaxPictureSide || height > kMaxPictureSide) return;
    std::vector<std::uint32_t> pixels(std::size_t{width} * height);
    if (FAILED(picture->CopyPixels(nullptr, width * 4, static_cast<UINT>(pixels.size() * 4),
                                   reinterpret_cast<BYTE*>(pixels.data())))) {
        return;
    }
    width_ = static_cast<int>(width);
    height_ = static_cast<int>(height);
    pixels_ = std::move(pixels);
}

void PictureFile::paint(const Canvas& canvas, const Box& area) const {
    if (empty() || area.empty()) return;
    const bool isWide = width_ * area.height() > height_ * area.width();
    const int width = std::max(isWide ? area.width() : width_ * area.height() / height_, 1);
    const int height = std::max(isWide ? height_ * area.width() / width_ : area.height(), 1);
    const int left = area.left + (area.width() - width) / 2;
    const int top = area.top + (area.height() - height) / 2;
    canvas.picture({left, top, left + width, top + height}, {pixels_.data(), width_, height_});
}

}  // namespace jsw::window
