#include "window/ui/Fonts.h"

#include "common/Encoding.h"

#include <string>

namespace jsw::window {
namespace {

int CALLBACK noteFace(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
    *reinterpret_cast<bool*>(found) = true;
    return 0;
}

bool isInstalled(const wchar_t* face) {
    LOGFONTW wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    lstrcpynW(wanted.lfFaceName, face, LF_FACESIZE);
    bool found = false;
    const MemoryDc dc(nullptr);
    EnumFontFamiliesExW(dc.get(), &wanted, noteFace, reinterpret_cast<LPARAM>(&found), 0);
    return found;
}

/** The face of the system's messages; "MS Shell Dlg" only if nothing better exists. */
std::wstring chooseFace() {
    constexpr const wchar_t* kStandIn = L"MS Shell Dlg";
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
    std::wstring system = metrics.lfMessageFont.lfFaceName;
    if (!system.empty() && !system.starts_with(kStandIn)) return system;
    for (const wchar_t* face : {L"Segoe UI", L"Open Sans", L"Tahoma", L"DejaVu Sans"}) {
        if (isInstalled(face)) return face;
    }
    return kStandIn;
}

GdiObject<HFONT> makeFont(const std::wstring& face, int points, int weight, int dotsPerInch) {
    return GdiObject<HFONT>(CreateFontW(-MulDiv(points, dotsPerInch, 72), 0, 0, 0, weight, FALSE,
                                        FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                                        CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                        DEFAULT_PITCH | FF_SWISS, face.c_str()));
}

}  // namespace

Fonts::Fonts(int dotsPerInch) {
    const std::wstring face = chooseFace();
    fonts_ = {makeFont(face, 9, FW_NORMAL, dotsPerInch), makeFont(face, 9, FW_BOLD, dotsPerInch),
              makeFont(face, 13, FW_BOLD, dotsPerInch), makeFont(face, 14, FW_BOLD, dotsPerInch)};
}

int FontMeasure::width(std::string_view text, Font font) const {
    const Selection selection(dc_.get(), fonts_.get(font));
    const std::wstring letters = common::wide(text);
    SIZE extent{};
    GetTextExtentPoint32W(dc_.get(), letters.c_str(), static_cast<int>(letters.size()), &extent);
    return static_cast<int>(extent.cx);
}

int FontMeasure::lineHeight(Font font) const {
    const Selection selection(dc_.get(), fonts_.get(font));
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc_.get(), &metrics);
    return metrics.tmHeight;
}

}  // namespace jsw::window
