#include "tools/view.h"

#include <algorithm>
#include <memory>
#include <new>
#include <optional>
#include <utility>
#include <vector>

#include "tools/cleanup.h"
#include "tools/lock.h"
#include "tools/surface.h"
#include "tools/window.h"

namespace galdren {

namespace {

/// A pair of an application.
struct Pair {
    HWND window;
    HDC dc;
    SIZE client;   ///< size of the client area that `dc` is mapped for
    Sheet* sheet;  ///< what `dc` belongs to; null for a context of the window
    bool own;      ///< `dc` was taken, or lent, for this pair
    int lent;      ///< see `Picture::Lend`
    int depth;     ///< pairs that go on with it
};

/// A batch. Those inside another one of the same window share its sheet.
struct Batch {
    HWND window;
    Sheet* sheet;  ///< null without memory: what is painted goes to the window
    bool outermost;
};

/// A window whose picture is held.
struct Hold {
    HWND window;
    int count;
    std::unique_ptr<Sheet> sheet;  ///< null until something is painted, or without memory
    std::optional<Window_Context> context;
};

/// The view of a member.
struct Painting {
    HWND window = nullptr;
    View view;
    RECT nested_clip{};      ///< see `Limit_Nested`
    Sheet* under = nullptr;  ///< what the sheet is part of: of a batch, or of a held window
    Target target;           ///< what the sheet is copied to at the end; mapped, it is a pair's
    std::optional<Window_Context> context;  ///< taken for this painting, and for those inside it
    int saved = 0;                          ///< state of a context that is painted on directly
};

/// All that the lock guards.
struct Surface {
    Surface() {
        constexpr std::size_t Usual_Depth = 16;  // only what nests deeper allocates
        pairs.reserve(Usual_Depth);
        batches.reserve(Usual_Depth);
        paintings.reserve(Usual_Depth);
    }
    std::vector<Pair> pairs;
    std::vector<Batch> batches;
    std::vector<Painting> paintings;
    std::vector<Hold> holds;
    std::unique_ptr<Sheet> kept;
    unsigned kept_number = 0;
};

Surface& The_Surface() {
    static Immortal<Surface> surface;
    return *surface;
}

RECT Whole(SIZE client) { return {0, 0, client.cx, client.cy}; }

bool operator==(SIZE a, SIZE b) { return a.cx == b.cx && a.cy == b.cy; }

/// The last of them that is of a window; null when there is none.
template <class Entry>
Entry* Last_Of(std::vector<Entry>& entries, HWND window) {
    const auto found = std::find_if(entries.rbegin(), entries.rend(),
                                    [&](const Entry& entry) { return entry.window == window; });
    return found == entries.rend() ? nullptr : &*found;
}

/// The batch of a window that has a sheet.
Batch* Batch_Of(Surface& surface, HWND window) {
    Batch* const batch = Last_Of(surface.batches, window);
    return batch && batch->sheet ? batch : nullptr;
}

/// The pair of a window that is inside its batch, if it has one of these.
Pair* Pair_Of(Surface& surface, HWND window) {
    Pair* const pair = Last_Of(surface.pairs, window);
    const Batch* const batch = pair ? Batch_Of(surface, window) : nullptr;
    return batch && pair->sheet != batch->sheet ? nullptr : pair;
}

// Held windows

/// Pictures of windows that are gone go with the next paint that has to look at a window.
void Forget_Dead_Windows(Surface& surface) {
    std::erase_if(surface.holds, [](const Hold& hold) {
        return !IsWindow(hold.window) && (!hold.sheet || hold.sheet->users == 0);
    });
}

HDC Context_Of(Hold& hold) {
    if (!hold.context) hold.context.emplace(hold.window);
    return hold.context->Get();
}

/// A context that belongs to its window or class is given back each time, for the application has it too; one
/// that could not be had is asked for again.
void Put_Away_Context(Hold& hold) {
    if (hold.context && (!hold.context->Get() || Has_Private_Context(hold.window))) hold.context.reset();
}

bool Has_Size(const Sheet& sheet, SIZE client) {
    return sheet.place.right == client.cx && sheet.place.bottom == client.cy;
}

/// The held picture of a window at its present size.
/// @param covered  what is about to be painted all over; the rest has to show what the window does
/// @return null when the window is not held, or there is no memory
Sheet* Held_Sheet(Surface& surface, HWND window, SIZE client, const RECT& covered) {
    Hold* const hold = surface.holds.empty() ? nullptr : Last_Of(surface.holds, window);
    if (!hold) return nullptr;
    if (hold->sheet && (Has_Size(*hold->sheet, client) || hold->sheet->users > 0)) return hold->sheet.get();
    if (!hold->sheet || !hold->sheet->Has_Room(client)) hold->sheet = Make_Sheet(client);
    if (!hold->sheet) return nullptr;
    hold->sheet->Stand_For(window, Whole(client));
    if (!Is_Inside(Whole(client), covered)) hold->sheet->Read({Context_Of(*hold)}, Whole(client));
    Put_Away_Context(*hold);
    return hold->sheet.get();
}

/// Brings what was painted to the window.
void Show_Now(Surface& surface, Sheet& sheet) {
    Hold* const hold = Last_Of(surface.holds, sheet.window);
    if (hold && hold->sheet.get() == &sheet) {
        sheet.Show({Context_Of(*hold)});
        Put_Away_Context(*hold);
    } else {
        sheet.Show({Window_Context(sheet.window).Get()});
    }
}

/// Brings what was painted to the window, unless a batch goes on painting.
void Show_When_Done(Surface& surface, Sheet& sheet) {
    const bool goes_on = std::any_of(surface.batches.begin(), surface.batches.end(),
                                     [&](const Batch& batch) { return batch.sheet == &sheet; });
    if (!goes_on) Show_Now(surface, sheet);
}

// Pairs of the application

void Set_Globals(const Surface& surface) {
    Z_DC = surface.pairs.empty() ? nullptr : surface.pairs.back().dc;
    Z_Window = surface.pairs.empty() ? nullptr : surface.pairs.back().window;
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
    Map_Logical(dc, {sheet.place.right, sheet.place.bottom});
    SetBoundsRect(dc, nullptr, DCB_RESET | DCB_ENABLE);
    ++sheet.users;
    return {window, dc, Size_Of(sheet.place), &sheet, true, lent, 1};
}

Pair Make_Pair(Surface& surface, HWND window) {
    if (const Batch* const batch = Batch_Of(surface, window)) return Lend_Sheet(*batch->sheet, window);
    if (const Pair* const outer = Last_Of(surface.pairs, window)) {
        return {window, outer->dc, outer->client, outer->sheet, false, 0, 1};
    }
    const SIZE client = Client_Size(window);
    if (client.cx > 0 && client.cy > 0) {
        if (Sheet* const held = Held_Sheet(surface, window, client, {})) return Lend_Sheet(*held, window);
    }
    const HDC dc = window ? GetDC(window) : nullptr;
    if (dc) Map_Logical(dc, client);
    return {window, dc, client, nullptr, dc != nullptr, 0, 1};
}

void End_Pair(Surface& surface, const Pair& pair) {
    if (!pair.own) return;
    if (!pair.sheet) {
        ReleaseDC(pair.window, pair.dc);
        return;
    }
    pair.sheet->Note(Bounds_Of(pair.dc));
    pair.sheet->Take_Back(pair.lent);
    Show_When_Done(surface, *pair.sheet);
    Release_Sheet(pair.sheet);
}

// Members

/// Has the context of a pair count in pixels, as one of the window does; its clip stays. Where an application
/// has moved the origin, the controls move with it.
void Count_Pixels(HDC dc, LONG client_height) {
    POINT corner{0, client_height - 1};
    LPtoDP(dc, &corner, 1);
    SetMapMode(dc, MM_TEXT);
    SetWindowOrgEx(dc, 0, 0, nullptr);
    SetViewportOrgEx(dc, corner.x, corner.y, nullptr);
}

void Paint_On(Painting& painting, Sheet& sheet) {
    painting.view.sheet = &sheet;
    painting.view.origin = sheet.Origin();
    ++sheet.users;
}

/// Paints inside another view of the window. A control elsewhere in the window, painted meanwhile to show a
/// report, is none of its parts.
bool Join(Painting& painting, const Painting& outer, const Reach& reach) {
    if (!outer.view.sheet && !outer.view.dc) return false;
    Sheet* const sheet = outer.view.sheet;
    const RECT needed = Common(Device_Of(reach.area, outer.view.client.cy), Whole(outer.view.client));
    const bool fits = !sheet || Is_Empty(needed) || !Is_Empty(Common(needed, sheet->place));
    if (!fits && !reach.is_part) return false;
    painting.view = outer.view;
    painting.view.kept = false;
    painting.view.clip = Common(needed, outer.nested_clip);
    if (sheet) Paint_On(painting, *sheet);
    return true;
}

/// The sheet that members of a window paint on now, of a batch or a held one; null when there is none.
Sheet* Open_Sheet(Surface& surface, const Painting& painting, const Reach& reach) {
    if (const Batch* const batch = Batch_Of(surface, painting.window)) return batch->sheet;
    return Held_Sheet(surface, painting.window, painting.view.client,
                      Device_Of(reach.covered, painting.view.client.cy));
}

/// The kept sheet for a rectangle: with what is on it when it is the one asked for, else with a new number;
/// null when it cannot be had.
Sheet* Kept_Sheet(Surface& surface, HWND window, const RECT& place, unsigned wanted, bool& same) {
    std::unique_ptr<Sheet>& kept = surface.kept;
    if (kept && kept->users > 0) return nullptr;
    const SIZE size = Size_Of(place);
    same = kept && wanted != 0 && wanted == surface.kept_number && Size_Of(kept->place) == size;
    if (same) {
        kept->place = kept->counts = place;
        return kept.get();
    }
    const SIZE room{size.cx, 2 * size.cy};
    if (kept && !kept->Has_Room(room)) kept.reset();
    if (!kept) kept = Make_Sheet(room);
    if (kept) kept->Stand_For(window, place);
    ++surface.kept_number;
    return kept.get();
}

/// Composes on the kept sheet.
/// @return false when that cannot be had
bool Keep(Surface& surface, Painting& painting, unsigned& picture) {
    View& view = painting.view;
    Sheet* const sheet = Kept_Sheet(surface, painting.window, view.clip, picture, view.kept);
    picture = sheet ? surface.kept_number : 0;
    if (sheet) Paint_On(painting, *sheet);
    return sheet != nullptr;
}

/// Has a sheet show what the window does, except where it is covered.
void Read_Around(Sheet& sheet, const Target& source, const RECT& covered) {
    const RECT& all = sheet.place;
    const RECT inner = Common(all, covered);
    if (Is_Empty(inner)) return sheet.Read(source, all);
    for (const RECT& strip :
         {RECT{all.left, all.top, all.right, inner.top}, RECT{all.left, inner.bottom, all.right, all.bottom},
          RECT{all.left, inner.top, inner.left, inner.bottom},
          RECT{inner.right, inner.top, all.right, inner.bottom}}) {
        if (!Is_Empty(strip)) sheet.Read(source, strip);
    }
}

/// Composes on a sheet of its own. Without memory it paints on the context itself.
void Compose(Painting& painting, const RECT& covered) {
    Sheet* const sheet = Acquire_Sheet(painting.window, painting.view.clip);
    if (sheet) {
        painting.view.sheet = sheet;
        painting.view.origin = sheet->Origin();
        if (!Is_Inside(sheet->place, covered)) Read_Around(*sheet, painting.target, covered);
        return;
    }
    painting.view.dc = painting.target.dc;
    painting.saved = SaveDC(painting.view.dc);
    if (painting.target.mapped_height) Count_Pixels(painting.view.dc, painting.view.client.cy);
}

/// Finds out where what is painted goes to: the context of a pair, an open sheet, or a context of the window.
/// @param pair   the pair that the member is in; null for none
/// @param outer  what is being painted in the window already; null for nothing
void Find_Target(Surface& surface, Painting& painting, const Pair* pair, const Painting* outer,
                 const Reach& reach) {
    if (pair) {
        painting.target = {pair->dc, pair->client.cy};
        return;
    }
    painting.under = Open_Sheet(surface, painting, reach);
    if (painting.under) return;
    if (!outer || !outer->context) {
        Forget_Dead_Windows(surface);
        painting.context.emplace(painting.window);
    }
    painting.target = {(outer && outer->context ? outer : &painting)->context->Get()};
}

/// Finds what a member that is not part of another paints on.
void Begin(Surface& surface, Painting& painting, const Painting* outer, const Reach& reach) {
    View& view = painting.view;
    const Pair* const pair = Pair_Of(surface, painting.window);
    view.client = pair ? pair->client : Client_Size(painting.window);
    const RECT all = Device_Of(reach.area, view.client.cy);
    view.clip = Common(all, Whole(view.client));
    if (Is_Empty(view.clip)) return;
    Find_Target(surface, painting, pair, outer, reach);
    if (!painting.under && !painting.target.dc) return;
    // The window may have grown since the batch began.
    if (painting.under) view.clip = Common(view.clip, painting.under->place);
    if (Is_Empty(view.clip)) return;
    // Part of a picture is not kept: what is outside the client area may come into view.
    const bool may_keep = reach.picture && EqualRect(&view.clip, &all);
    if (painting.under && !may_keep) return Paint_On(painting, *painting.under);
    if (may_keep && Keep(surface, painting, *reach.picture)) return;
    if (painting.under) return Paint_On(painting, *painting.under);
    Compose(painting, Device_Of(reach.covered, view.client.cy));
}

/// Brings what was painted to where it goes.
void End(Surface& surface, Painting& painting, const RECT& painted) {
    Sheet* const sheet = painting.view.sheet;
    if (painting.saved) RestoreDC(painting.view.dc, painting.saved);
    if (!sheet) return;
    sheet->Note(painted);
    if (painting.target.dc) {
        sheet->Show(painting.target);
    } else if (painting.under) {
        if (painting.under != sheet) sheet->Show(*painting.under);
        Show_When_Done(surface, *painting.under);
    }
    Release_Sheet(sheet);
}

void Free_Kept() {
    const Drawing_Lock lock;
    Surface& surface = The_Surface();
    if (surface.kept && surface.kept->users == 0) surface.kept.reset();
    Forget_Dead_Windows(surface);
}

const Cleanup Kept_Cleanup(Free_Kept);

}  // namespace

View Take_View(HWND window, const Reach& reach) {
    Enter_Lock();
    Surface& surface = The_Surface();
    std::vector<Painting>& paintings = surface.paintings;
    if (paintings.size() == paintings.capacity()) paintings.reserve(2 * paintings.size());
    const Painting* const outer = Last_Of(paintings, window);
    Painting& painting = paintings.emplace_back();
    painting.window = window;
    const bool joins = outer && Join(painting, *outer, reach);
    if (!joins) Begin(surface, painting, outer, reach);
    if (reach.picture && (joins || painting.view.sheet != surface.kept.get())) *reach.picture = 0;
    painting.nested_clip = painting.view.clip;
    return painting.view;
}

void Take_Context(HWND window) {
    Enter_Lock();
    Surface& surface = The_Surface();
    Painting painting;
    painting.window = window;
    const bool needed = !Last_Of(surface.paintings, window) && !Pair_Of(surface, window) &&
                        !Batch_Of(surface, window) && !Last_Of(surface.holds, window);
    if (needed) painting.context.emplace(window);
    surface.paintings.push_back(std::move(painting));
}

void Give_Back_View(const RECT& painted) {
    Surface& surface = The_Surface();
    End(surface, surface.paintings.back(), painted);
    surface.paintings.pop_back();
    Leave_Lock();
}

void Limit_Nested(const RECT& clip) { The_Surface().paintings.back().nested_clip = clip; }

void Forget_Kept_Picture() {
    const Drawing_Lock lock;
    ++The_Surface().kept_number;
}

HWND Window_In_Use() {
    if (!Holds_Lock()) return nullptr;
    const Surface& surface = The_Surface();
    return surface.paintings.empty() ? Z_Window : surface.paintings.back().window;
}

void Open_Pair(HWND window) {
    Enter_Lock();
    Surface& surface = The_Surface();
    std::vector<Pair>& pairs = surface.pairs;
    const bool goes_on = !pairs.empty() && Pair_Of(surface, window) == &pairs.back();
    if (goes_on) {
        ++pairs.back().depth;
    } else {
        pairs.push_back(Make_Pair(surface, window));
    }
    Set_Globals(surface);
}

void Close_Pair() {
    if (!Holds_Lock()) return;
    Surface& surface = The_Surface();
    if (surface.pairs.empty()) return;
    if (--surface.pairs.back().depth == 0) {
        const Pair pair = surface.pairs.back();
        surface.pairs.pop_back();
        End_Pair(surface, pair);
        Set_Globals(surface);
    }
    Leave_Lock();
}

namespace {

/// The sheet of the outermost batch of a window; null when there is nothing to paint, or no memory.
/// @param area  see `Open_Batch`
Sheet* Batch_Sheet(Surface& surface, HWND window, const RECT* area) {
    const SIZE client = Client_Size(window);
    if (client.cx < 1 || client.cy < 1) return nullptr;
    if (Sheet* const held = Held_Sheet(surface, window, client, area ? *area : RECT{})) {
        ++held->users;
        return held;
    }
    Sheet* const sheet = Acquire_Sheet(window, Whole(client));
    if (!sheet) return nullptr;
    if (area) {
        sheet->counts = Common(sheet->place, *area);
    } else {
        sheet->Read({Window_Context(window).Get()}, sheet->place);
    }
    return sheet;
}

/// Fills a rectangle of the client area, where the members paint.
void Fill(HWND window, const RECT& area, unsigned long color) {
    const SIZE client = Client_Size(window);
    const RECT box = Common(area, Whole(client));
    if (Is_Empty(box)) return;
    const Area filled{static_cast<int>(box.left), static_cast<int>(box.right) - 1,
                      static_cast<int>(client.cy - box.bottom), static_cast<int>(client.cy - 1 - box.top)};
    const View view = Take_View(window, {filled, filled});
    if (view.sheet) {
        Sheet& sheet = *view.sheet;
        const POINT origin = sheet.Origin();
        Fill_Pixels(sheet.Pixels(),
                    {box.left - origin.x, box.top - origin.y, box.right - origin.x, box.bottom - origin.y},
                    Pixel_Of(color));
    } else if (view.dc) {
        SetDCBrushColor(view.dc, color & 0xFFFFFF);
        FillRect(view.dc, &box, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    }
    Give_Back_View(box);
}

}  // namespace

void Open_Batch(HWND window, const RECT* area, unsigned long color) {
    Enter_Lock();
    Surface& surface = The_Surface();
    Forget_Dead_Windows(surface);
    const Batch* const open = Last_Of(surface.batches, window);
    Sheet* const sheet = open ? open->sheet : Batch_Sheet(surface, window, area);
    surface.batches.push_back({window, sheet, !open});
    if (area) Fill(window, *area, color);
}

void Close_Batch() {
    if (!Holds_Lock()) return;
    Surface& surface = The_Surface();
    if (surface.batches.empty()) return;
    const Batch batch = surface.batches.back();
    surface.batches.pop_back();
    if (batch.outermost && batch.sheet) {
        for (const Pair& pair : surface.pairs) {
            if (pair.own && pair.sheet == batch.sheet) batch.sheet->Note(Bounds_Of(pair.dc));
        }
        Show_Now(surface, *batch.sheet);
        Release_Sheet(batch.sheet);
    }
    Leave_Lock();
}

void Open_Hold(HWND window) {
    if (!IsWindow(window)) return;
    const Drawing_Lock lock;
    Surface& surface = The_Surface();
    Forget_Dead_Windows(surface);
    if (Hold* const hold = Last_Of(surface.holds, window)) {
        ++hold->count;
        return;
    }
    try {
        surface.holds.push_back({window, 1, nullptr, std::nullopt});
    } catch (const std::bad_alloc&) {
        return;  // the window is painted like any other
    }
}

void Close_Hold(HWND window) {
    const Drawing_Lock lock;
    Surface& surface = The_Surface();
    Hold* const hold = Last_Of(surface.holds, window);
    if (!hold || --hold->count > 0) return;
    Retire_Sheet(std::move(hold->sheet));
    std::erase_if(surface.holds, [&](const Hold& entry) { return entry.window == window; });
}

bool Show_Held(HWND window, HDC target, const RECT& area) {
    const Drawing_Lock lock;
    Surface& surface = The_Surface();
    Hold* const hold = Last_Of(surface.holds, window);
    if (!hold || !hold->sheet || !Has_Size(*hold->sheet, Client_Size(window))) return false;
    const RECT shown = Common(area, hold->sheet->place);
    if (!Is_Empty(shown)) hold->sheet->Copy_To({target}, shown);
    return true;
}

}  // namespace galdren
