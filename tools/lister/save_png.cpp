#include "tools/lister/save_png.h"

#include <objbase.h>
#include <objidl.h>

#include <gdiplus.h>

#include <algorithm>
#include <vector>

namespace rl::tools {

namespace {

/// The imaging library, for the length of a block.
class GdiPlusScope {
public:
    GdiPlusScope() {
        const Gdiplus::GdiplusStartupInput input;
        isReady_ = Gdiplus::GdiplusStartup(&token_, &input, nullptr) == Gdiplus::Ok;
    }
    GdiPlusScope(const GdiPlusScope&) = delete;
    GdiPlusScope& operator=(const GdiPlusScope&) = delete;
    ~GdiPlusScope() {
        if (isReady_) {
            Gdiplus::GdiplusShutdown(token_);
        }
    }
    [[nodiscard]] bool IsReady() const { return isReady_; }

private:
    ULONG_PTR token_ = 0;
    bool isReady_ = false;
};

constexpr CLSID kPngEncoder = {
    0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

}  // namespace

bool SavePng(const Image& image, const std::wstring& file) {
    const GdiPlusScope scope;
    if (!scope.IsReady() || image.IsEmpty()) {
        return false;
    }
    std::vector<std::uint32_t> pixels = image.pixels;
    Gdiplus::Bitmap bitmap(image.width, image.height, image.width * 4, PixelFormat32bppRGB,
                           reinterpret_cast<BYTE*>(pixels.data()));
    return bitmap.Save(file.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
}

}  // namespace rl::tools
