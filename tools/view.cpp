#include "tools/view.h"

#include <memory>
#include <utility>

#include "tools/cleanup.h"
#include "tools/globals.h"
#include "tools/input.h"
#include "tools/lock.h"
#include "tools/paint_count.h"
#include "tools/session.h"

namespace galdren {

namespace {

struct Kept_Picture {
    std::unique_ptr<Sheet> sheet;
    unsigned number = 0;
};

void Free_Kept() {
    const Drawing_Lock lock;
    std::unique_ptr<Sheet>& sheet = The<Kept_Picture>().sheet;
    if (sheet && sheet->users == 0) sheet.reset();
    Forget_Dead_Windows();
}

const Cleanup Kept_Cleanup(Free_Kept);

/// The kept sheet for a rectangle: with what is on it when it is the one asked for, else with a new number;
/// null when it cannot be had.
Sheet* Kept_Sheet(HWND window, const RECT& place, unsigned wanted, bool& same) {
    auto& [kept, number] = The<Kept_Picture>();
    if (kept && kept->users > 0) return nullptr;
    const SIZE size = Size_Of(place);
    const SIZE kept_size = kept ? Size_Of(kept->place) : SIZE{};
    same = kept && wanted != 0 && wanted == number && kept_size.cx == size.cx && kept_size.cy == size.cy;
    if (same) {
        kept->place = kept->counts = place;
        return kept.get();
    }
    const SIZE room{size.cx, 2 * size.cy};
    if (kept && !kept->Has_Room(room)) kept.reset();
    if (!kept) kept = Make_Sheet(room);
    if (kept) kept->Stand_For(window, place);
    ++number;
    return kept.get();
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

/// Has the context of a pair count in pixels, as one of the window does; its clip stays. Where an application
/// has moved the origin, the controls move with it.
void Count_Pixels(HDC dc, LONG client_height) {
    POINT corner{0, client_height - 1};
    LPtoDP(dc, &corner, 1);
    SetMapMode(dc, MM_TEXT);
    SetWindowOrgEx(dc, 0, 0, nullptr);
    SetViewportOrgEx(dc, corner.x, corner.y, nullptr);
}

}  // namespace

View* View::Innermost = nullptr;

View* View::Innermost_Of(HWND window) {
    View* view = Innermost;
    while (view && view->window != window)
        view = view->before;
    return view;
}

View::View(HWND owner) : window(owner) {
    Enter_Lock();
    outer = Innermost_Of(window);
    before = std::exchange(Innermost, this);
}

View::View(HWND owner, const Reach& reach) : View(owner) {
    const bool joins = outer && Join(reach);
    if (!joins) Begin(reach);
    if (reach.picture && (joins || sheet != The<Kept_Picture>().sheet.get())) *reach.picture = 0;
    nested_clip = clip;
}

Shared_Context::Shared_Context(HWND owner) : View(owner) {
    const bool needed =
        !outer && !Pair_Of(window) && !Batch_Sheet(window) && !Last_Of(The<Sessions>().holds, window);
    if (needed) context.emplace(window);
}

void View::Use(Sheet& used) {
    sheet = &used;
    origin = used.Origin();
    ++used.users;
}

/// Paints inside another view of the window. A control elsewhere in the window, painted meanwhile to show a
/// report, is none of its parts. Where nothing of a control is seen, nothing of its parts is.
bool View::Join(const Reach& reach) {
    const bool is_context_only = outer->client.cx == 0;
    if (!outer->sheet && !outer->dc) {
        client = outer->client;
        return reach.is_part && !is_context_only;
    }
    const RECT needed = Common(Device_Of(reach.area, outer->client.cy), Box_Of(outer->client));
    const bool fits = !outer->sheet || Is_Empty(needed) || !Is_Empty(Common(needed, outer->sheet->place));
    if (!fits && !reach.is_part) return false;
    client = outer->client;
    clip = Common(needed, outer->nested_clip);
    dc = outer->dc;
    if (outer->sheet) Use(*outer->sheet);
    return true;
}

/// Finds what a member that is not part of another paints on.
void View::Begin(const Reach& reach) {
    const Pair* const pair = Pair_Of(window);
    client = pair ? pair->client : Client_Size(window);
    const RECT all = Device_Of(reach.area, client.cy);
    const RECT covered = Device_Of(reach.covered, client.cy);
    clip = Common(all, Box_Of(client));
    if (Is_Empty(clip)) return;
    if (pair) {
        target = {pair->dc, pair->client.cy};
    } else {
        Find_Target(covered);
    }
    // The window may have grown since the batch began.
    if (under) clip = Common(clip, under->place);
    if (Is_Empty(clip) || (!under && !target.dc)) return;
    // Part of a picture is not kept: what is outside the client area may come into view.
    const bool may_keep = reach.picture && EqualRect(&clip, &all);
    if (may_keep && Keep(*reach.picture)) return;
    if (under) return Use(*under);
    Compose(covered);
}

/// Outside of pairs, what is painted goes to the sheet of the batch or of the held window, or to a context of
/// the window.
void View::Find_Target(const RECT& covered) {
    under = Batch_Sheet(window);
    if (!under) under = Held_Sheet(window, client, covered);
    if (under) return;
    const bool shared = outer && outer->context;
    if (!shared) {
        Forget_Dead_Windows();
        context.emplace(window);
    }
    target.dc = (shared ? outer : this)->context->Get();
}

/// Composes on the kept sheet.
/// @return false when that cannot be had
bool View::Keep(unsigned& picture) {
    Sheet* const sheet_kept = Kept_Sheet(window, clip, picture, kept);
    picture = sheet_kept ? The<Kept_Picture>().number : 0;
    if (sheet_kept) Use(*sheet_kept);
    return sheet_kept != nullptr;
}

/// Composes on a sheet of its own. Without memory it paints on the context itself.
void View::Compose(const RECT& covered) {
    if (Sheet* const own = Free_Sheet(window, clip)) {
        Use(*own);
        if (!Is_Inside(own->place, covered)) Read_Around(*own, target, covered);
        return;
    }
    dc = target.dc;
    saved = SaveDC(dc);
    if (target.mapped_height) Count_Pixels(dc, client.cy);
}

void View::Fill(const RECT& box, unsigned long color) {
    if (Is_Empty(box)) return;
    Include(painted, box);
    if (sheet) {
        Fill_Pixels(sheet->Pixels(),
                    {box.left - origin.x, box.top - origin.y, box.right - origin.x, box.bottom - origin.y},
                    Pixel_Of(color));
    } else if (dc) {
        SetDCBrushColor(dc, color & 0xFFFFFF);
        FillRect(dc, &box, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    }
}

/// Counts what was painted, with all that was painted inside this view, as one paint.
void View::Count() {
    if (target.dc || under) {
        Count_Paint();
    } else if (outer) {
        Include(outer->painted, painted);
    }
}

/// Brings what was painted to where it goes.
void View::Show() {
    if (!Is_Empty(painted)) Count();
    if (saved) RestoreDC(dc, saved);
    if (!sheet) return;
    sheet->Note(painted);
    if (target.dc) {
        sheet->Show(target);
    } else if (under) {
        if (under != sheet) sheet->Show(*under);
        Show_When_Done(*under);
    }
    Release_Sheet(sheet);
}

View::~View() {
    Show();
    context.reset();
    Innermost = before;
    Leave_Lock();
}

void Forget_Kept_Picture() {
    const Drawing_Lock lock;
    ++The<Kept_Picture>().number;
}

std::optional<POINT> Pointer_In_Paint(HWND window) {
    View* view = Holds_Lock() ? View::Innermost_Of(window) : nullptr;
    if (!view) return Find_Pointer(window);
    while (view->outer)
        view = view->outer;
    std::optional<POINT>& asked_for = view->asked_for;
    if (!asked_for || asked_for->x != ZCursor_X || asked_for->y != ZCursor_Y) {
        asked_for = POINT{ZCursor_X, ZCursor_Y};
        view->pointer = Find_Pointer(window);
    }
    return view->pointer;
}

bool Is_Painting(HWND window) {
    const View* const view = View::Innermost_Of(window);
    return view && (view->sheet || view->dc);
}

HWND Window_In_Use() {
    if (!Holds_Lock()) return nullptr;
    return View::Innermost ? View::Innermost->window : Z_Window;
}

}  // namespace galdren
