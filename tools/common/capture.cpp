#include "tools/common/capture.h"

#include "load/files/unique_handle.h"

namespace rl::tools {

namespace {

struct MemoryDcTraits {
    using Handle = HDC;
    static Handle Empty() noexcept { return nullptr; }
    static void Close(Handle dc) noexcept { DeleteDC(dc); }
};

struct BitmapTraits {
    using Handle = HBITMAP;
    static Handle Empty() noexcept { return nullptr; }
    static void Close(Handle bitmap) noexcept { DeleteObject(bitmap); }
};

/// The whole window's device context, for the length of a block.
class WindowDc {
public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetWindowDC(window)) {}
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    ~WindowDc() { ReleaseDC(window_, dc_); }
    [[nodiscard]] HDC Get() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
};

BITMAPINFO TopDownInfo(int width, int height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

}  // namespace

COLORREF Image::ColorAt(int x, int y) const {
    if (x < 0 || y < 0 || x >= width || y >= height) {
        return RGB(255, 255, 255);
    }
    const std::uint32_t pixel =
        pixels[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)];
    return RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
}

int Image::Count(const RECT& area, COLORREF color) const {
    int count = 0;
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            count += ColorAt(x, y) == color;
        }
    }
    return count;
}

Image Image::Part(const RECT& area) const {
    Image part{.width = area.right - area.left, .height = area.bottom - area.top, .pixels = {}};
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            const COLORREF color = ColorAt(x, y);
            part.pixels.push_back(static_cast<std::uint32_t>(
                GetRValue(color) << 16 | GetGValue(color) << 8 | GetBValue(color)));
        }
    }
    return part;
}

Image CaptureWindow(HWND window) {
    RECT frame{};
    GetWindowRect(window, &frame);
    Image image{
        .width = frame.right - frame.left, .height = frame.bottom - frame.top, .pixels = {}};
    if (image.width <= 0 || image.height <= 0) {
        return {};
    }
    const WindowDc source(window);
    const UniqueHandle<MemoryDcTraits> memory(CreateCompatibleDC(source.Get()));
    const UniqueHandle<BitmapTraits> bitmap(
        CreateCompatibleBitmap(source.Get(), image.width, image.height));
    const HGDIOBJ previous = SelectObject(memory.Get(), bitmap.Get());
    BitBlt(memory.Get(), 0, 0, image.width, image.height, source.Get(), 0, 0, SRCCOPY);
    SelectObject(memory.Get(), previous);

    BITMAPINFO info = TopDownInfo(image.width, image.height);
    image.pixels.resize(static_cast<size_t>(image.width) * static_cast<size_t>(image.height));
    const int rows = GetDIBits(memory.Get(), bitmap.Get(), 0, static_cast<UINT>(image.height),
                               image.pixels.data(), &info, DIB_RGB_COLORS);
    return rows == image.height ? image : Image{};
}

}  // namespace rl::tools
