#include "tests/support/ImportTable.h"
#include "tests/support/TestLimits.h"
#include "tests/window/JobWindowTest.h"
#include "window/ui/Gdi.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace jsw::test {
namespace {

/// The screen's picture of a part of a window.
struct Picture {
    LONG width = 0;
    std::vector<std::uint32_t> pixels;
    bool operator==(const Picture&) const = default;

    [[nodiscard]] LONG count(COLORREF colour) const {
        const auto pixel = static_cast<std::uint32_t>(GetRValue(colour) << 16 |
                                                      GetGValue(colour) << 8 | GetBValue(colour));
        return static_cast<LONG>(std::count(pixels.begin(), pixels.end(), pixel));
    }
};

Picture pictureOf(HWND window, const RECT& area) {
    Picture picture{area.right - area.left, {}};
    const LONG height = area.bottom - area.top;
    const HDC screen = GetDC(window);
    {
        BITMAPINFO info{};
        info.bmiHeader = {
            sizeof(info.bmiHeader), picture.width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        const window::GdiObject<HBITMAP> bitmap(
            CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        const window::MemoryDc memory(screen);
        const window::Selection selection(memory.get(), bitmap.get());
        BitBlt(memory.get(), 0, 0, picture.width, height, screen, area.left, area.top, SRCCOPY);
        GdiFlush();
        const auto* const first = static_cast<const std::uint32_t*>(bits);
        picture.pixels.assign(first, first + picture.width * height);
        for (std::uint32_t& pixel : picture.pixels) pixel &= 0xFFFFFF;
    }
    ReleaseDC(window, screen);
    return picture;
}

class JobWindowPictureTest : public JobWindowTest {
  protected:
    /// Everything posted earlier has been handled: this click comes after it.
    void emptyQueue() const {
        reports.take();
        press(JSW_VIEW_CURRENT);
        ASSERT_TRUE(eventually([] { return reports.has("CURRENT 0"); }));
    }
    [[nodiscard]] Picture content() const {
        emptyQueue();
        // Painting comes last, and nothing reports its end.
        Picture last;
        for (int equal = 0; equal < 3;) {
            Sleep(20);
            settle();
            RECT area;
            GetClientRect(window_, &area);
            Picture now = pictureOf(window_, area);
            equal = now == last ? equal + 1 : 0;
            last = std::move(now);
        }
        return last;
    }
    [[nodiscard]] Picture drawnAfresh() const {
        RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
        return content();
    }
    void resize(int width, int height) const {
        SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    void changeScale(int dotsPerInch) const {
        constexpr UINT kDpiChanged = 0x02E0;
        const RECT frame{0, 0, 700, 600};
        SendMessageA(window_, kDpiChanged, MAKEWPARAM(dotsPerInch, dotsPerInch),
                     reinterpret_cast<LPARAM>(&frame));
    }
    [[nodiscard]] SIZE sizeOf(int id) const {
        RECT area;
        GetClientRect(control(id), &area);
        return {area.right, area.bottom};
    }
    void writeLongPage() {
        std::string text =
            "title = A page\nbutton = &Next tip | NEXT_TIP | 3\n\nSee [first | A | 1].\n";
        for (int i = 0; i < 8; ++i) text += "\nA paragraph that takes a line or two of the page.\n";
        folder_.write("Scripts\\page.jbb", text + "\nSee [last | B | 2].\n");
    }
};

// A dozen pictures; scripts/soak.sh walks through 200.
TEST_F(JobWindowPictureTest, AnyResizingLeavesThePixelsOfAFreshDrawing) {
    const char* const wanted = std::getenv("JSW_WALK_SIZES");
    const int sizes = wanted ? std::atoi(wanted) : 6;
    writeLongPage();
    const ImportTable imports(module_.get());
    for (const LANGID language : {LANGID{0x409}, LANGID{0x407}}) {
        const auto asked = replaceImport<decltype(GetUserDefaultUILanguage)>(
            imports, "GetUserDefaultUILanguage", [&] { return language; });
        startJob();
        show();
        for (const int dotsPerInch : {96, 144, 192}) {
            changeScale(dotsPerInch);
            for (int i = 0; i < sizes / 3; ++i) {
                allowSeconds(30);
                // Smaller and larger, the height at another rate than the width.
                const int width = 440 + std::abs((i * 36 + 12) % 1100 - 550);
                resize(width, 300 + std::abs((i * 92) % 800 - 400));
                if (i % 3 == 1) press(JSW_VIEW_CANCEL);
                if (i % 3 == 2) press(JSW_VIEW_NO);
                const Picture seen = content();
                RECT area;
                GetClientRect(window_, &area);
                ASSERT_TRUE(seen == drawnAfresh()) << "language " << language << ", " << dotsPerInch
                                                   << " dpi, " << area.right << "x" << area.bottom;
            }
        }
        Uninitialize();
        ASSERT_TRUE(eventually([] { return ownWindow(JSW_SAMPLE_VIEW_CLASS) == nullptr; }));
    }
}

TEST_F(JobWindowPictureTest, PicturesAreSeenInEverySchemeOfHighContrast) {
    struct Scheme {
        COLORREF window;
        COLORREF text;
    };
    Scheme scheme{};
    bool isOn = true;
    const ImportTable imports(module_.get());
    const auto parameters = replaceImport<decltype(SystemParametersInfoW)>(
        imports, "SystemParametersInfoW",
        [&](auto original, UINT action, UINT size, void* data, UINT update) -> BOOL {
            if (action != SPI_GETHIGHCONTRAST) return original(action, size, data, update);
            static_cast<HIGHCONTRASTW*>(data)->dwFlags = isOn ? HCF_HIGHCONTRASTON : 0;
            return TRUE;
        });
    const auto colours =
        replaceImport<decltype(GetSysColor)>(imports, "GetSysColor", [&](int index) -> DWORD {
            const bool isGround = index == COLOR_WINDOW || index == COLOR_BTNFACE;
            return isGround ? scheme.window : scheme.text;
        });
    startJob();
    show();
    for (const std::string picture : {"printer", "drop", "bulb", "ink"}) {
        folder_.write("Scripts\\" + picture + ".jbb",
                      "title = " + picture + "\npicture = " + picture + "\n\nText.\n");
        DisplayBillboard((picture + ".jbb").c_str(), 1, 0);
        ASSERT_TRUE(eventually([&] { return text(JSW_VIEW_BILLBOARD) == picture; }))
            << text(JSW_VIEW_BILLBOARD);
        for (const Scheme& each :
             {Scheme{RGB(0, 0, 0), RGB(255, 255, 0)}, Scheme{RGB(0, 0, 0), RGB(0, 255, 0)},
              Scheme{RGB(0, 0, 0), RGB(255, 255, 255)}, Scheme{RGB(255, 255, 255), RGB(0, 0, 0)}}) {
            scheme = each;
            SendMessageA(window_, WM_SYSCOLORCHANGE, 0, 0);
            (void)drawnAfresh();
            // The middle of the panel at the page's side.
            const LONG middle = sizeOf(JSW_VIEW_BILLBOARD).cy / 2;
            const Picture seen =
                pictureOf(control(JSW_VIEW_BILLBOARD), {26, middle - 49, 124, middle + 49});
            EXPECT_GT(seen.count(scheme.window), 98 * 98 / 6) << picture << scheme.text;
            EXPECT_GT(seen.count(scheme.text), 98 * 98 / 6) << picture << scheme.text;
        }
    }
    Uninitialize();
}

TEST_F(JobWindowPictureTest, ThePanelShowsThroughAPicture) {
    // Two pixels: a red one and one that is transparent.
    constexpr unsigned char kPng[] = {
        0x89, 0x50, 0x4E, 0x47, 0x0D, 0x0A, 0x1A, 0x0A, 0x00, 0x00, 0x00, 0x0D, 0x49, 0x48, 0x44,
        0x52, 0x00, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00, 0x01, 0x08, 0x06, 0x00, 0x00, 0x00, 0xF4,
        0x22, 0x7F, 0x8A, 0x00, 0x00, 0x00, 0x0F, 0x49, 0x44, 0x41, 0x54, 0x78, 0xDA, 0x63, 0xF8,
        0xCF, 0xC0, 0xF0, 0x1F, 0x88, 0x19, 0x00, 0x10, 0xF8, 0x02, 0xFE, 0x15, 0x92, 0xFA, 0xBF,
        0x00, 0x00, 0x00, 0x00, 0x49, 0x45, 0x4E, 0x44, 0xAE, 0x42, 0x60, 0x82};
    folder_.write("Scripts\\red.png", {reinterpret_cast<const char*>(kPng), sizeof(kPng)});
    folder_.write("Scripts\\page.jbb", "title = Red\npicture = red.png\n\nText.\n");
    startJob();
    show();
    (void)content();
    const LONG middle = sizeOf(JSW_VIEW_BILLBOARD).cy / 2;
    const auto half = [&](LONG left) {
        return pictureOf(control(JSW_VIEW_BILLBOARD), {left, middle - 20, left + 40, middle + 20});
    };
    EXPECT_EQ(half(30).count(RGB(255, 0, 0)), 40 * 40);
    const Picture through = half(80);
    EXPECT_EQ(through.count(RGB(255, 0, 0)), 0);
    // The gradient of the panel: one colour in a row, others below it.
    EXPECT_EQ(through.pixels[0], through.pixels[39]);
    EXPECT_NE(through.pixels[0], through.pixels[39 * 40]);
    EXPECT_EQ(through.count(RGB(255, 255, 255)), 0);
}

TEST_F(JobWindowPictureTest, APageThatDoesNotFitIsScrolledByKeysWheelAndFocus) {
    writeLongPage();
    startJob();
    show();
    resize(640, 500);
    const auto isSeen = [&](int link) { return sizeOf(JSW_VIEW_CONTENT_LINK + link).cy > 0; };
    EXPECT_TRUE(isShown(JSW_VIEW_PAGE_SCROLL));
    EXPECT_TRUE(isSeen(0) && !isSeen(1));
    SetForegroundWindow(window_);
    ASSERT_TRUE(eventually([&] { return focus() == JSW_VIEW_CURRENT; }));
    const Picture top = content();
    key(VK_END);
    EXPECT_TRUE(eventually([&] { return isSeen(1) && !isSeen(0); }));
    key(VK_HOME);
    EXPECT_TRUE(eventually([&] { return isSeen(0) && !isSeen(1); }));
    EXPECT_TRUE(content() == top);
    constexpr WORD kTwentyNotches = 0x10000 - 20 * WHEEL_DELTA;  // towards the user
    PostMessageA(control(JSW_VIEW_CURRENT), WM_MOUSEWHEEL, MAKEWPARAM(0, kTwentyNotches), 0);
    EXPECT_TRUE(eventually([&] { return isSeen(1) && !isSeen(0); }));
    for (int next = 0; next != JSW_VIEW_CONTENT_LINK; next = focus()) {
        const int before = focus();
        key(VK_TAB);
        ASSERT_TRUE(eventually([&] { return focus() != before; }));
    }
    EXPECT_TRUE(eventually([&] { return isSeen(0); }));
    EXPECT_TRUE(content() == drawnAfresh());
    // At another size everything fits.
    resize(1000, 760);
    emptyQueue();
    EXPECT_TRUE(isSeen(0) && isSeen(1));
    EXPECT_FALSE(isShown(JSW_VIEW_PAGE_SCROLL));
}

TEST_F(JobWindowPictureTest, AKeyBelongsToOneButtonAndThePageComesBeforeTheRest) {
    writeLongPage();
    startJob();
    show();
    PostMessageA(control(JSW_VIEW_CURRENT), WM_SYSCHAR, 'n', 1 << 29);
    EXPECT_TRUE(eventually([] { return reports.has("NEXT 0"); }));
    EXPECT_EQ(text(JSW_VIEW_CONTENT_BUTTON), "N&ext tip");

    std::map<int, int> order;
    int place = 0;
    for (HWND child = GetWindow(window_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        order[GetDlgCtrlID(child)] = ++place;
    }
    EXPECT_LT(order[JSW_VIEW_INK], order[JSW_VIEW_BILLBOARD]);
    EXPECT_LT(order[JSW_VIEW_BILLBOARD], order[JSW_VIEW_CONTENT_LINK]);
    EXPECT_LT(order[JSW_VIEW_CONTENT_BUTTON], order[JSW_VIEW_CANCEL]);
}

}  // namespace
}  // namespace jsw::test
