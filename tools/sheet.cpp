#include "tools/sheet.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "tools/cleanup.h"
#include "tools/lock.h"
#include "tools/paint_count.h"
#include "tools/ring.h"

namespace galdren {

void Sheet::Stand_For(HWND owner, const RECT& where) {
    window = owner;
    place = counts = where;
    painted = {};
    first_row = 0;
}

void Sheet::Read(const Target& source, const RECT& area) {
    const POINT origin = Origin();
    const SIZE size = Size_Of(area);
    StretchBlt(For_GDI(), area.left - origin.x, area.top - origin.y, size.cx, size.cy, source.dc, area.left,
               source.Top(area.top), size.cx, source.mapped_height ? -size.cy : size.cy, SRCCOPY);
}

void Sheet::Copy_To(const Target& target, const RECT& area) {
    const POINT origin = Origin();
    Put_Pixels(target.dc, {area.left, target.Top(area.top)}, Pixels(), area.left - origin.x,
               area.top - origin.y, Size_Of(area));
    Count_Copy(Size_Of(area));
}

bool Sheet::Stretch_To(HDC target, const RECT& where) {
    const POINT origin = Origin();
    return Stretch_Pixels(target, where, Pixels(), place.left - origin.x, place.top - origin.y,
                          Size_Of(place));
}

void Sheet::Show(const Target& target) {
    const RECT area = Common(painted, counts);
    if (!Is_Empty(area)) {
        Copy_To(target, area);
        if (!target.mapped_height) Paint_Rings(window, target.dc, area);
    }
    painted = {};
}

void Sheet::Show(Sheet& target) {
    const RECT area = Common(painted, counts);
    if (!Is_Empty(area)) {
        const POINT from = Origin();
        const POINT to = target.Origin();
        const SIZE size = Size_Of(area);
        Copy_Pixels(Pixels().At(area.left - from.x, area.top - from.y), Pixels().pitch,
                    target.Pixels().At(area.left - to.x, area.top - to.y), target.Pixels().pitch, size.cx,
                    size.cy);
        target.Note(area);
    }
    painted = {};
}

void Sheet::Raise(int rows) {
    const int height = static_cast<int>(place.bottom - place.top);
    const int last_start = static_cast<int>(Room().cy) - height;
    const Raster& raster = Pixels();
    const auto copy = [&](int from, int to, int count) {
        std::memmove(
            raster.At(0, to), raster.At(0, from),
            static_cast<std::size_t>(count) * static_cast<std::size_t>(raster.pitch) * sizeof *raster.first);
    };
    const int moved = first_row + rows;
    if (moved < 0) {
        copy(first_row, last_start - rows, height + rows);
        first_row = last_start;
    } else if (moved > last_start) {
        copy(moved, 0, height - rows);
        first_row = 0;
    } else {
        first_row = moved;
    }
}

namespace {

/// Large enough for most single controls.
constexpr SIZE Small_Room{320, 64};

/// Windows grow by pixels, and their sheets by steps.
LONG Round_Up(LONG length) {
    constexpr LONG Step = 64;
    return (length + Step - 1) / Step * Step;
}

struct Sheets {
    std::unique_ptr<Sheet> small_one;
    std::unique_ptr<Sheet> large_one;
    std::vector<std::unique_ptr<Sheet>> nested;  ///< for as long as they are used
};

bool Is_Free(const std::unique_ptr<Sheet>& sheet) { return !sheet || sheet->users == 0; }

/// Adds a sheet to those that go when nobody uses them any more; null when it is, or there is no memory.
Sheet* Nest(std::unique_ptr<Sheet> sheet) try {
    if (!sheet) return nullptr;
    The<Sheets>().nested.push_back(std::move(sheet));
    return The<Sheets>().nested.back().get();
} catch (const std::bad_alloc&) {
    return nullptr;
}

void Free_Sheets() {
    const Drawing_Lock lock;
    Sheets& sheets = The<Sheets>();
    if (Is_Free(sheets.small_one)) sheets.small_one.reset();
    if (Is_Free(sheets.large_one)) sheets.large_one.reset();
}

const Cleanup Sheets_Cleanup(Free_Sheets);

}  // namespace

std::unique_ptr<Sheet> Make_Sheet(SIZE size) {
    std::unique_ptr<Sheet> sheet(new (std::nothrow) Sheet({Round_Up(size.cx), Round_Up(size.cy)}));
    if (sheet && !sheet->Usable()) sheet.reset();
    return sheet;
}

void Retire_Sheet(std::unique_ptr<Sheet> sheet) {
    if (sheet && sheet->users > 0) Nest(std::move(sheet));
}

Sheet* Free_Sheet(HWND window, const RECT& place) {
    Sheets& sheets = The<Sheets>();
    const SIZE size = Size_Of(place);
    const bool small = size.cx <= Small_Room.cx && size.cy <= Small_Room.cy && Is_Free(sheets.small_one);
    std::unique_ptr<Sheet>& kept = small ? sheets.small_one : sheets.large_one;
    const bool nests = !Is_Free(kept);
    if (!nests && !(kept && kept->Has_Room(size))) {
        kept.reset();
        kept = Make_Sheet(small ? Small_Room : size);
    }
    Sheet* const sheet = nests ? Nest(Make_Sheet(size)) : kept.get();
    if (sheet) sheet->Stand_For(window, place);
    return sheet;
}

void Release_Sheet(Sheet* sheet) {
    if (--sheet->users > 0) return;
    std::erase_if(The<Sheets>().nested, [](const auto& entry) { return !entry || entry->users == 0; });
}

}  // namespace galdren
