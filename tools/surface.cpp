#include "tools/surface.h"

#include <new>
#include <utility>

#include "tools/lock.h"
#include "tools/ring.h"
#include "tools/session.h"
#include "tools/view.h"
#include "util/error.h"
#include "util/program.h"

using namespace galdren;

namespace {

void Set_Globals() {
    const std::vector<Pair>& pairs = The<Sessions>().pairs;
    Z_DC = pairs.empty() ? nullptr : pairs.back().dc;
    Z_Window = pairs.empty() ? nullptr : pairs.back().window;
}

/// What was painted on a context since it was lent, in its pixels.
RECT Bounds_Of(HDC dc) {
    RECT bounds{};
    if (!(GetBoundsRect(dc, &bounds, DCB_RESET) & DCB_SET)) return {};
    LPtoDP(dc, reinterpret_cast<POINT*>(&bounds), 2);
    if (bounds.top > bounds.bottom) std::swap(bounds.top, bounds.bottom);
    return bounds;
}

/// A context of a sheet that stands for the whole client area.
Pair Lend_Sheet(Sheet& sheet, HWND window) {
    const int lent = sheet.Lend();
    const HDC dc = sheet.For_GDI();
    IntersectClipRect(dc, 0, 0, sheet.place.right, sheet.place.bottom);
    Map_Logical(dc, Size_Of(sheet.place));
    SetBoundsRect(dc, nullptr, DCB_RESET | DCB_ENABLE);
    ++sheet.users;
    return {window, dc, Size_Of(sheet.place), &sheet, true, lent, 1};
}

Pair Make_Pair(HWND window) {
    if (Sheet* const batch = Batch_Sheet(window)) return Lend_Sheet(*batch, window);
    if (const Pair* const outer = Last_Of(The<Sessions>().pairs, window)) {
        return {window, outer->dc, outer->client, outer->sheet, false, 0, 1};
    }
    const SIZE client = Client_Size(window);
    if (client.cx > 0 && client.cy > 0) {
        if (Sheet* const held = Held_Sheet(window, client, {})) return Lend_Sheet(*held, window);
    }
    const HDC dc = window ? GetDC(window) : nullptr;
    if (dc) Map_Logical(dc, client);
    return {window, dc, client, nullptr, dc != nullptr, 0, 1};
}

void End_Pair(const Pair& pair) {
    if (!pair.own) return;
    if (!pair.sheet) {
        ReleaseDC(pair.window, pair.dc);
        if (Has_Rings(pair.window))
            Paint_Rings(pair.window, Window_Context(pair.window).Get(), Box_Of(pair.client));
        return;
    }
    pair.sheet->Note(Bounds_Of(pair.dc));
    pair.sheet->Take_Back(pair.lent);
    Show_When_Done(*pair.sheet);
    Release_Sheet(pair.sheet);
}

/// Limits `Z_DC` to a rectangle of its pixels, in place of any clip before.
void Clip_To(const RECT& pixels) {
    const HRGN region = CreateRectRgn(pixels.left, pixels.top, pixels.right, pixels.bottom);
    SelectClipRgn(Z_DC, region);
    if (region) DeleteObject(region);
}

/// The sheet of the outermost batch of a window; null when there is nothing to paint, or no memory.
/// @param area  all that counts, which need not be read; null, the window is
Sheet* Make_Batch_Sheet(HWND window, const RECT* area) {
    const SIZE client = Client_Size(window);
    if (client.cx < 1 || client.cy < 1) return nullptr;
    if (Sheet* const held = Held_Sheet(window, client, area ? *area : RECT{})) return held;
    Sheet* const sheet = Free_Sheet(window, Box_Of(client));
    if (!sheet) return nullptr;
    if (area) {
        sheet->counts = Common(sheet->place, *area);
    } else {
        sheet->Read({Window_Context(window).Get()}, sheet->place);
    }
    return sheet;
}

void Open_Batch(HWND window, const RECT* area) {
    Enter_Lock();
    Forget_Dead_Windows();
    std::vector<Batch>& batches = The<Sessions>().batches;
    const Batch* const open = Last_Of(batches, window);
    Sheet* const sheet = open ? open->sheet : Make_Batch_Sheet(window, area);
    if (!open && sheet) ++sheet->users;
    batches.push_back({window, sheet, !open});
}

bool Is_Context(HDC dc) {
    const DWORD type = GetObjectType(dc);
    return type == OBJ_DC || type == OBJ_MEMDC || type == OBJ_ENHMETADC || type == OBJ_METADC;
}

}  // namespace

void Begin_Draw(HWND window, HRGN) {
    Enter_Lock();
    std::vector<Pair>& pairs = The<Sessions>().pairs;
    const bool goes_on = !pairs.empty() && Pair_Of(window) == &pairs.back();
    if (goes_on) {
        ++pairs.back().depth;
    } else {
        pairs.push_back(Make_Pair(window));
    }
    Set_Globals();
}

void End_Draw() {
    if (!Holds_Lock()) return;
    std::vector<Pair>& pairs = The<Sessions>().pairs;
    if (pairs.empty()) return;
    if (--pairs.back().depth == 0) {
        const Pair pair = pairs.back();
        pairs.pop_back();
        End_Pair(pair);
        Set_Globals();
    }
    Leave_Lock();
}

void Clip_Rect(int x, int y, int w, int h) {
    POINT corners[2] = {{x, y}, {x + w, y + h}};
    LPtoDP(Z_DC, corners, 2);
    Clip_To({corners[0].x, corners[0].y, corners[1].x, corners[1].y});
}

void Clip_Reset() { Clip_To(Box_Of(Client_Size(Z_Window))); }

void Begin_Batch(HWND window) { Open_Batch(window, nullptr); }

void Begin_Batch(HWND window, const RECT& area, unsigned long color) {
    Open_Batch(window, &area);
    const SIZE client = Client_Size(window);
    const RECT box = Common(area, Box_Of(client));
    if (Is_Empty(box)) return;
    const RECT upward{box.left, client.cy - box.bottom, box.right, client.cy - box.top};
    View view(window, {Area_Of(upward), Area_Of(upward)});
    view.Fill(Common(box, view.clip), color);
}

int Begin_Print(HWND window, unsigned long color) {
    const RECT client = Box_Of(Client_Size(window));
    if (Is_Empty(client)) return 0;
    const Drawing_Lock lock;
    // A part of that member would be taken for it, and paint where it does.
    if (Is_Painting(window)) return 0;
    Sheet* const sheet = Free_Sheet(window, client);
    if (!sheet) {
        Error_Fct(hwnd, ERROR_LEVEL_MEMORY, "Tools: no memory to print a window of %d x %d pixels",
                  static_cast<int>(client.right), static_cast<int>(client.bottom));
        return 0;
    }
    Enter_Lock();  // until `End_Batch`
    ++sheet->users;
    sheet->counts = {};  // nothing of it goes to the window
    Fill_Pixels(sheet->Pixels(), client, Pixel_Of(color));
    The<Sessions>().batches.push_back({window, sheet, true});
    return 1;
}

int Show_Batch(HDC target, const RECT& place) {
    if (!Is_Context(target)) {
        Error_Fct(hwnd, ERROR_LEVEL_WARNING,
                  "Tools: what a window was to be printed on is no device context");
        return 0;
    }
    if (place.left == place.right || place.top == place.bottom) return 0;
    const Drawing_Lock lock;
    const std::vector<Batch>& batches = The<Sessions>().batches;
    Sheet* const sheet = batches.empty() ? nullptr : batches.back().sheet;
    return sheet && sheet->Stretch_To(target, place);
}

void End_Batch() {
    if (!Holds_Lock()) return;
    Sessions& open = The<Sessions>();
    if (open.batches.empty()) return;
    const Batch batch = open.batches.back();
    open.batches.pop_back();
    if (batch.outermost && batch.sheet) {
        for (const Pair& pair : open.pairs) {
            if (pair.own && pair.sheet == batch.sheet) batch.sheet->Note(Bounds_Of(pair.dc));
        }
        Show_Now(*batch.sheet);
        Release_Sheet(batch.sheet);
    }
    Leave_Lock();
}

void Begin_Hold(HWND window) {
    if (!IsWindow(window)) return;
    const Drawing_Lock lock;
    Forget_Dead_Windows();
    std::list<Hold>& holds = The<Sessions>().holds;
    if (Hold* const hold = Last_Of(holds, window)) {
        ++hold->count;
        return;
    }
    try {
        holds.emplace_back().window = window;
    } catch (const std::bad_alloc&) {
        return;  // the window is painted like any other
    }
}

void End_Hold(HWND window) {
    const Drawing_Lock lock;
    std::list<Hold>& holds = The<Sessions>().holds;
    Hold* const hold = Last_Of(holds, window);
    if (!hold || --hold->count > 0) return;
    Retire_Sheet(std::move(hold->sheet));
    std::erase_if(holds, [&](const Hold& entry) { return entry.window == window; });
}

int Show_Hold(HWND window, HDC target, const RECT& area) {
    const Drawing_Lock lock;
    const Hold* const hold = Last_Of(The<Sessions>().holds, window);
    if (!hold || !hold->Has_Picture_Of(Client_Size(window))) return 0;
    const RECT shown = Common(area, hold->sheet->place);
    if (!Is_Empty(shown)) {
        hold->sheet->Copy_To({target}, shown);
        Paint_Rings(window, target, shown);
    }
    return 1;
}
