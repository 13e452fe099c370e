#include "tests/pictures/sheet.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <sstream>

#include "tests/support/png.h"
#include "tests/support/spy.h"

namespace galdren_test {

struct Sheet::Way {
    const char* name;
    UINT class_style;
    void (*begin)(HWND window);
    void (*end)();
};

namespace {

std::optional<Call_Spy> Starved;

/// From now on there are no pictures in memory: the window itself is painted on.
void Starve() {
    Tools_Lib_Cleanup();
    Starved.emplace().Fail_Every("CreateDIBSection");
}

}  // namespace

const Sheet::Way Sheet::Ways[] = {
    {"directly", 0, [](HWND) {}, [] {}},
    {"in batches", 0, [](HWND window) { Begin_Batch(window); }, End_Batch},
    {"in pairs", 0, [](HWND window) { Begin_Draw(window, nullptr); }, End_Draw},
    {"held", 0, [](HWND window) { Begin_Hold(window); }, [] {}},
    {"on a context of its own", CS_OWNDC, [](HWND) {}, [] {}},
    {"without memory", 0, [](HWND) { Starve(); }, [] { Starved.reset(); }},
};

namespace {

constexpr int Widest = 1200, Highest = 960;  // fits on the display

void Paint_Ground(HWND window, int width, int height) {
    constexpr std::uint32_t Other = 0x00FF30;
    std::vector<std::uint32_t> stripes;
    for (int i = 0; i < width * height; ++i)
        stripes.push_back((i % width + i / width) / 4 % 2 ? Loud : Other);
    const BITMAPINFO layout{{sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    HDC context = GetDCEx(window, nullptr, DCX_CACHE);
    StretchDIBits(context, 0, 0, width, height, 0, 0, width, height, stripes.data(), &layout, DIB_RGB_COLORS,
                  SRCCOPY);
    ReleaseDC(window, context);
}

}  // namespace

void Cell::Place(Tools& control) const {
    constexpr int margin = 4;
    control.X = static_cast<short>(x + margin), control.Y = static_cast<short>(y + margin);
    control.Width = static_cast<short>(width - 2 * margin - 1);
    control.Height = static_cast<short>(height - 2 * margin - 1);
    control.Name = "Caption", control.Font_Name = "Arial", control.Font_Size = 9;
}

Sheet::Sheet(const char* name, int cell_width, int cell_height)
    : name_(name), cell_width_(cell_width), cell_height_(cell_height) {}

void Sheet::Add(std::string name, Scene scene) { scenes_.emplace_back(std::move(name), std::move(scene)); }

int Sheet::Columns() const { return std::min(Widest / cell_width_, static_cast<int>(scenes_.size())); }

int Sheet::Rows() const { return (static_cast<int>(scenes_.size()) + Columns() - 1) / Columns(); }

Picture Sheet::Paint(const Way& way) const {
    const int width = Columns() * cell_width_, height = Rows() * cell_height_;
    EXPECT_LE(height, Highest) << "split " << name_;
    const Test_Window window(width, height, way.class_style);
    Paint_Ground(window, width, height);
    Cell cell{window, 0, height - cell_height_, cell_width_, cell_height_};
    for (const auto& [name, scene] : scenes_) {
        way.begin(window);
        scene(cell);
        way.end();
        cell.x += cell_width_;
        if (cell.x == width) cell.x = 0, cell.y -= cell_height_;
    }
    return Picture(window);
}

/// Says for each scene how many pixels differ and which is the first; empty when there are none.
std::string Sheet::Compare(const Picture& got, const Picture& wanted) const {
    if (got.Width() != wanted.Width() || got.Height() != wanted.Height()) return "the sizes differ\n";
    if (got.Pixels() == wanted.Pixels()) return {};
    std::ostringstream text;
    for (int i = 0; i < static_cast<int>(scenes_.size()); ++i) {
        const int left = i % Columns() * cell_width_, top = (Rows() - i / Columns()) * cell_height_ - 1;
        int count = 0;
        std::ostringstream first;
        for (int k = 0; k < cell_width_ * cell_height_; ++k) {
            const int x = left + k % cell_width_, y = top - k / cell_width_;
            if (got.At(x, y) == wanted.At(x, y) || count++ > 0) continue;
            first << '(' << x << ", " << y << "), in its cell " << k % cell_width_ << " from the left and "
                  << k / cell_width_ << " from the top: got " << std::hex << got.At(x, y) << ", wanted "
                  << wanted.At(x, y);
        }
        if (count) {
            text << "scene " << i << ", " << scenes_[static_cast<std::size_t>(i)].first << ": " << count
                 << " pixels differ, the topmost at " << first.str() << '\n';
        }
    }
    return text.str();
}

void Sheet::Expect_Recorded() const {
    const char* target = std::getenv("GALDREN_RECORD");
    const std::string recorded = std::string(target ? target : RECORDED_PICTURES) + '/' + name_ + ".png";
    EXPECT_TRUE(!target || Write_Png(Paint(Ways[0]), recorded)) << recorded;
    const std::optional<Picture> wanted = Read_Png(recorded);
    ASSERT_TRUE(wanted) << recorded << " cannot be read";
    for (const Way& way : Ways) {
        const Picture got = Paint(way);
        const std::string differences = Compare(got, *wanted);
        if (differences.empty()) continue;
        const std::string kept = std::string(FAILED_PICTURES) + '/' + name_ + ' ' + way.name + ".png";
        std::filesystem::create_directories(FAILED_PICTURES);
        ADD_FAILURE() << name_ << ", painted " << way.name << ", is not what is recorded; it is "
                      << (Write_Png(got, kept) ? kept : "not kept") << '\n'
                      << differences;
    }
}

}  // namespace galdren_test
