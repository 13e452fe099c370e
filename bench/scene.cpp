#include "scene.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace bench {

namespace {

/// Device context of a whole stage, its children included.
class Stage_Context {
  public:
    explicit Stage_Context(const Stage& stage)
        : window(stage.Get()), dc(GetDCEx(window, nullptr, DCX_CACHE)) {}
    ~Stage_Context() { ReleaseDC(window, dc); }
    Stage_Context(const Stage_Context&) = delete;
    Stage_Context& operator=(const Stage_Context&) = delete;
    HDC Get() const { return dc; }

  private:
    HWND window;
    HDC dc;
};

using Pixels = std::vector<std::uint32_t>;

/// What an area of a stage shows.
Pixels Picture(const Stage& stage, const RECT& area) {
    const LONG width = area.right - area.left;
    const LONG height = area.bottom - area.top;
    Pixels pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const Stage_Context source(stage);
    const HDC copy = CreateCompatibleDC(source.Get());
    const HBITMAP bitmap = CreateCompatibleBitmap(source.Get(), width, height);
    const HGDIOBJ before = SelectObject(copy, bitmap);
    BitBlt(copy, 0, 0, width, height, source.Get(), area.left, area.top, SRCCOPY);
    SelectObject(copy, before);
    GetDIBits(copy, bitmap, 0, static_cast<UINT>(height), pixels.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(copy);
    for (std::uint32_t& pixel : pixels)
        pixel &= 0xFFFFFF;
    return pixels;
}

int Count_Different(const Pixels& a, const Pixels& b) {
    int count = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        count += a[i] != b[i];
    return count;
}

Work Do_Steps(const Steps& steps, int count, Shown shown) {
    return {[&steps, count, shown] {
                for (int i = 0; i < count; ++i) {
                    steps.step(i);
                    if (shown == Shown::One_By_One || i + 1 == count) Flush();
                }
            },
            count, [&steps] { steps.stage.Raise(); }};
}

void Paint_Over(const Stage& stage) {
    const Stage_Context context(stage);
    PatBlt(context.Get(), 0, 0, Stage::Width, Stage::Height, WHITENESS);
}

}  // namespace

const char* Common_Control(DWORD kind, const char* window_class) {
    const INITCOMMONCONTROLSEX classes{sizeof classes, kind};
    Require(InitCommonControlsEx(&classes) != FALSE, "there are no such common controls");
    return window_class;
}

void Put_Pointer(const Stage& stage, POINT client) {
    ClientToScreen(stage.Get(), &client);
    ZCursor_X = client.x;
    ZCursor_Y = client.y;
}

void Place(Tools& control, const RECT& client) {
    control.X = static_cast<short>(client.left);
    control.Width = static_cast<short>(client.right - client.left);
    control.Height = static_cast<short>(client.bottom - client.top);
    // The top row that a control paints is Y + Height.
    control.Y = static_cast<short>(Stage::Height - 1 - client.bottom);
    control.Font_Name = "Arial";
    control.Font_Size = 9;
}

void Paint(const Stage& stage, Painting painting, const std::function<void()>& draw) {
    PAINTSTRUCT paint;
    BeginPaint(stage.Get(), &paint);
    const RECT& area = paint.rcPaint;
    if (painting != Painting::One_By_One) {
        Begin_Batch(stage.Get(), area, Stage::Background);
        draw();
        End_Batch();
    } else {
        Begin_Draw(stage.Get(), nullptr);
        Current_Color = Stage::Background;
        Draw_Box(area.left, Stage::Height - 1 - area.top, area.right, Stage::Height - 1 - area.bottom);
        End_Draw();
        draw();
    }
    EndPaint(stage.Get(), &paint);
}

Native_Control::Native_Control(const Stage& stage, const char* window_class, const char* text, DWORD style,
                               const RECT& client)
    : window(CreateWindowExA(0, window_class, text, WS_CHILD | style, client.left, client.top,
                             client.right - client.left, client.bottom - client.top, stage.Get(), nullptr,
                             GetModuleHandleA(nullptr), nullptr)) {
    Require(window != nullptr, "there is no such native control");
}

Native_Control::~Native_Control() {
    if (window) DestroyWindow(window);
}

Native_Trackbar::Native_Trackbar(const RECT& client)
    : Native_Side(Common_Control(ICC_BAR_CLASSES, TRACKBAR_CLASSA), "", WS_VISIBLE | TBS_HORZ | TBS_NOTICKS,
                  client) {
    RECT channel{};
    RECT thumb{};
    Get().Send(TBM_GETCHANNELRECT, 0, reinterpret_cast<LPARAM>(&channel));
    Get().Send(TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
    positions = channel.right - channel.left - (thumb.right - thumb.left);
    Get().Send(TBM_SETRANGE, TRUE, MAKELPARAM(0, positions));
    Window().Repaint();
}

void Native_Trackbar::Move_To(int position) const {
    Get().Send(TBM_SETPOS, TRUE, position);
    UpdateWindow(Get().Get());
}

void Require_Classic(const Stage& stage, POINT face) {
    Require(stage.Pixel(face.x, face.y) == GetSysColor(COLOR_BTNFACE), "the native control is themed");
}

void Require_Each_Shows(const Steps& steps, int count) {
    steps.stage.Raise();
    Pixels before = Picture(steps.stage, steps.area);
    for (int i = 0; i < count; ++i) {
        steps.step(i);
        Pixels after = Picture(steps.stage, steps.area);
        Require(Count_Different(before, after) >= steps.least_pixels, "a step does not show");
        before = std::move(after);
    }
}

Result Compare_Steps(const Steps& ours, const Steps& native, int count, Shown shown) {
    Require_Each_Shows(ours, count);
    Require_Each_Shows(native, count);
    return Compare(Do_Steps(ours, count, shown), Do_Steps(native, count, shown));
}

void Require_Repainted(const Stage& stage, const RECT* areas, int count) {
    stage.Raise();
    stage.Repaint();
    std::vector<Pixels> pictures;
    for (int i = 0; i < count; ++i) {
        pictures.push_back(Picture(stage, areas[i]));
        const Pixels& picture = pictures.back();
        Require(std::any_of(picture.begin(), picture.end(), [&](auto pixel) { return pixel != picture[0]; }),
                "a control was not painted");
    }
    Paint_Over(stage);
    stage.Repaint();
    for (int i = 0; i < count; ++i)
        Require(Picture(stage, areas[i]) == pictures[static_cast<std::size_t>(i)],
                "a control was not repainted");
}

}  // namespace bench
