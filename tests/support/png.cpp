#include "tests/support/png.h"

// GDI+ wants COM's declarations first, and min and max by their plain names.
#include <objidl.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
namespace Gdiplus {
using std::max;  // NOLINT(misc-unused-using-decls)
using std::min;  // NOLINT(misc-unused-using-decls)
}  // namespace Gdiplus
#include <gdiplus.h>

namespace galdren_test {

namespace {

/// A path as GDI+ takes it, once it has been started; it stays so until the program ends.
std::wstring Prepare(const std::string& path) {
    static ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    if (token == 0) Gdiplus::GdiplusStartup(&token, &input, nullptr);
    return std::filesystem::path(path).wstring();
}

}  // namespace

std::optional<Picture> Read_Png(const std::string& path) {
    Gdiplus::Bitmap file(Prepare(path).c_str());
    const int width = static_cast<int>(file.GetWidth()), height = static_cast<int>(file.GetHeight());
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const Gdiplus::Rect all(0, 0, width, height);
    Gdiplus::BitmapData data{file.GetWidth(),     file.GetHeight(), 4 * width,
                             PixelFormat32bppRGB, pixels.data(),    0};
    constexpr UINT mode = Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeUserInputBuf;
    if (pixels.empty() || file.LockBits(&all, mode, PixelFormat32bppRGB, &data) != Gdiplus::Ok) return {};
    file.UnlockBits(&data);
    for (std::uint32_t& pixel : pixels)
        pixel &= 0xFFFFFF;
    return Picture(width, height, std::move(pixels));
}

bool Write_Png(const Picture& picture, const std::string& path) {
    constexpr CLSID encoder{0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
    const std::wstring target = Prepare(path);
    std::vector<std::uint32_t> pixels = picture.Pixels();
    Gdiplus::Bitmap file(picture.Width(), picture.Height(), 4 * picture.Width(), PixelFormat32bppRGB,
                         reinterpret_cast<BYTE*>(pixels.data()));
    return file.Save(target.c_str(), &encoder, nullptr) == Gdiplus::Ok;
}

testing::AssertionResult Is_Recorded(const Picture& picture, const std::string& directory,
                                     const std::string& name) {
    const char* const target = std::getenv("GALDREN_RECORD");
    const std::string path = (target ? target : directory) + '/' + name + ".png";
    if (target && !Write_Png(picture, path)) return testing::AssertionFailure() << path << " is not written";
    const std::optional<Picture> recorded = Read_Png(path);
    if (!recorded) return testing::AssertionFailure() << path << " cannot be read";
    return Same(picture, *recorded) << ", as in " << path;
}

}  // namespace galdren_test
