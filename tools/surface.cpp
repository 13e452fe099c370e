#include "tools/surface.h"

#include <algorithm>
#include <map>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "tools/back_buffer.h"
#include "tools/cleanup.h"
#include "tools/context.h"
#include "tools/input.h"
#include "tools/lock.h"

CRITICAL_SECTION Critical;
unsigned char Critical_Flag = 0;
HDC Z_DC = nullptr;
HWND Z_Window = nullptr;
unsigned long Current_Color = 0;

namespace galdren {

namespace {

BOOL CALLBACK Make_Lock(INIT_ONCE*, void*, void**) {
    InitializeCriticalSection(&Critical);
    Critical_Flag = 1;
    return TRUE;
}

void Enter_Lock() {
    static INIT_ONCE once = INIT_ONCE_STATIC_INIT;
    InitOnceExecuteOnce(&once, Make_Lock, nullptr, nullptr);
    EnterCriticalSection(&Critical);
}

void Leave_Lock() { LeaveCriticalSection(&Critical); }

/// Whether this thread is inside the lock, so that a call that only ends something cannot end another's.
bool Holds_Lock() {
    return Critical_Flag &&
           Critical.OwningThread == reinterpret_cast<HANDLE>(ULONG_PTR{GetCurrentThreadId()});
}

/// An open batch; the innermost is the last.
struct Batch {
    HWND window;
    Window_Buffer* buffer;  ///< null when it could not be made: members then paint on the window itself
    bool outermost;         ///< of its window; this one brings the picture to the window
};

/// Where a level has its context from.
enum class Source { Window, Lower_Level, Batch, Scratch };

/// A window whose surface is held; the one being drawn is the last.
struct Level {
    HWND window;
    View view;
    Source source;
    Back_Buffer* buffer = nullptr;  ///< what is painted on, when that is off screen
    int holders = 0;                ///< open pairs
    int applications = 0;           ///< open pairs of applications among them
    int saved = 0;                  ///< what to restore off screen after the application; 0 without one
    HGDIOBJ font_before = nullptr;  ///< font to put back; null while it is in place
};

/// All that the lock guards.
struct Surface {
    Surface() {
        constexpr std::size_t Usual_Depth = 16;  // taking the surface allocates only beyond this
        levels.reserve(Usual_Depth);
        batches.reserve(Usual_Depth);
    }
    std::vector<Level> levels;
    std::vector<Batch> batches;
    std::map<HWND, std::unique_ptr<Window_Buffer>> buffers;
    std::unique_ptr<Scratch> scratch;
    std::unique_ptr<Kept_Picture> kept;  ///< of the last control that asked for one
    unsigned kept_number = 0;
};

Surface& The_Surface() {
    static Immortal<Surface> surface;
    return *surface;
}

void Restore_Font(Level& level) {
    if (level.font_before) SelectObject(level.view.dc, level.font_before);
    level.font_before = nullptr;
}

void Set_Globals(const Surface& surface) {
    Z_DC = surface.levels.empty() ? nullptr : surface.levels.back().view.dc;
    Z_Window = surface.levels.empty() ? nullptr : surface.levels.back().window;
}

/// A context of the window's own. Only an application needs the mapping, which costs more than the rest; a
/// private context may have one already.
Level Take_Window(HWND window, bool mapped) {
    const HDC dc = window ? GetDC(window) : nullptr;
    const SIZE client = Client_Size(window);
    mapped = mapped || (dc && Has_Private_Context(window));
    if (dc && mapped) Map_Logical(dc, client);
    return {window, {dc, client.cy, mapped}, Source::Window};
}

/// The context that is already held for `window`, or a new one.
Level Find_Context(const Surface& surface, HWND window, bool mapped) {
    for (const Batch& batch : surface.batches) {
        if (batch.window == window && batch.buffer) {
            return {window,
                    {batch.buffer->Context(), batch.buffer->Size().cy, true},
                    Source::Batch,
                    batch.buffer};
        }
    }
    for (const Level& level : surface.levels) {
        const bool fit = level.source == Source::Window && (level.view.mapped || !mapped);
        if (level.window == window && fit) return {window, level.view, Source::Lower_Level};
    }
    return Take_Window(window, mapped);
}

/// Whether the innermost level already shows `window`, on the batch's context if there is one.
bool Goes_On(const Surface& surface, HWND window, bool mapped) {
    if (surface.levels.empty()) return false;
    const Level& level = surface.levels.back();
    if (level.window != window || (mapped && !level.view.mapped)) return false;
    return level.source == Source::Batch ||
           std::none_of(surface.batches.begin(), surface.batches.end(),
                        [&](const Batch& batch) { return batch.window == window && batch.buffer; });
}

Level& Take(HWND window, bool application) {
    Enter_Lock();
    Surface& surface = The_Surface();
    if (!Goes_On(surface, window, application)) {
        surface.levels.push_back(Find_Context(surface, window, application));
        Set_Globals(surface);
    }
    Level& level = surface.levels.back();
    ++level.holders;
    if (application && level.applications++ == 0 && level.buffer) {
        level.buffer->Reset_Text();
        level.saved = SaveDC(level.view.dc);
    }
    return level;
}

/// Whether nothing is held for `window` and the scratch picture is free.
bool May_Compose(const Surface& surface, HWND window) {
    return std::none_of(surface.batches.begin(), surface.batches.end(),
                        [&](const Batch& batch) { return batch.window == window; }) &&
           std::none_of(surface.levels.begin(), surface.levels.end(), [&](const Level& level) {
               return level.window == window || level.source == Source::Scratch;
           });
}

RECT To_Device(const RECT& logical, LONG client_height) {
    return {logical.left, client_height - 1 - logical.bottom, logical.right + 1, client_height - logical.top};
}

/// A new level on a picture that stands for a rectangle of the window.
void Compose_On(Surface& surface, Scratch& picture, HWND window, const RECT& device, LONG client_height) {
    picture.Stand_For(device);
    surface.levels.push_back({window, {picture.Context(), client_height, false}, Source::Scratch, &picture});
    Set_Globals(surface);
}

/// A new level on the scratch picture that stands for a rectangle of the window in logical pixels.
/// @return false when that is not possible
bool Take_Scratch(Surface& surface, HWND window, const RECT& covered) {
    const SIZE client = Client_Size(window);
    if (client.cx < 1 || client.cy < 1 || !May_Compose(surface, window)) return false;
    if (!surface.scratch) surface.scratch.reset(new (std::nothrow) Scratch(Scratch::Small_Control));
    const RECT device = To_Device(covered, client.cy);
    Scratch* scratch = surface.scratch.get();
    if (!scratch || !scratch->Usable() || !scratch->Fits(device)) return false;
    Compose_On(surface, *scratch, window, device, client.cy);
    return true;
}

/// The kept picture in this size, with a new number unless it is the one asked for; null when it cannot be
/// had.
Kept_Picture* Picture_Of(Surface& surface, SIZE size, unsigned wanted) {
    constexpr LONG Longest_Side = 4096;  // no more than a large display has
    if (size.cx < 1 || size.cy < 1 || size.cx > Longest_Side || size.cy > Longest_Side) return nullptr;
    const bool fits = surface.kept && surface.kept->Has_Size(size);
    if (fits && wanted != 0 && surface.kept->number == wanted) return surface.kept.get();
    if (!fits) {
        surface.kept.reset();
        surface.kept.reset(new (std::nothrow) Kept_Picture(size));
    }
    if (!surface.kept || !surface.kept->Usable()) return nullptr;
    surface.kept->number = ++surface.kept_number;
    return surface.kept.get();
}

/// A new level on the kept picture.
/// @return false when that is not possible
bool Take_Kept(Surface& surface, HWND window, const RECT& covered, unsigned& picture) {
    const SIZE client = Client_Size(window);
    if (client.cx < 1 || client.cy < 1 || !May_Compose(surface, window)) return false;
    const RECT device = To_Device(covered, client.cy);
    const SIZE size{device.right - device.left, device.bottom - device.top};
    Kept_Picture* kept = Picture_Of(surface, size, picture);
    if (!kept) return false;
    picture = kept->number;
    Compose_On(surface, *kept, window, device, client.cy);
    return true;
}

/// Ends a level. The font stays where only members meet it: off screen, and on a window's common context,
/// which forgets it when released.
void Release(Level& level) {
    const bool own = level.source == Source::Window;
    if (level.source == Source::Lower_Level || (own && Has_Private_Context(level.window)))
        Restore_Font(level);
    if (own && level.view.dc) ReleaseDC(level.window, level.view.dc);
    if (level.source == Source::Scratch) static_cast<Scratch*>(level.buffer)->Show(level.window);
}

void Give_Back(bool application) {
    if (!Holds_Lock()) return;
    Surface& surface = The_Surface();
    if (surface.levels.empty()) return;
    Level& level = surface.levels.back();
    if (application) {
        if (level.applications == 0) return;
        if (--level.applications == 0 && level.saved) RestoreDC(level.view.dc, std::exchange(level.saved, 0));
    }
    --level.holders;
    if (level.holders == 0) {
        Release(level);
        surface.levels.pop_back();
        Set_Globals(surface);
    } else if (level.holders == level.applications) {
        Restore_Font(level);
    }
    Leave_Lock();
}

/// The buffer of `window` at its present size; null when it cannot be had. Buffers of windows that are gone
/// go when a new one is made.
Window_Buffer* Buffer_For(Surface& surface, HWND window) {
    const SIZE client = Client_Size(window);
    if (client.cx < 1 || client.cy < 1) return nullptr;
    const auto found = surface.buffers.find(window);
    if (found != surface.buffers.end() && found->second->Fits(client)) return found->second.get();
    std::erase_if(surface.buffers, [&](const auto& entry) {
        const bool painted_on =
            std::any_of(surface.batches.begin(), surface.batches.end(),
                        [&](const Batch& batch) { return batch.buffer == entry.second.get(); });
        return !painted_on && (entry.first == window || !IsWindow(entry.first));
    });
    try {
        auto buffer = std::make_unique<Window_Buffer>(client);
        if (!buffer->Usable()) return nullptr;
        return (surface.buffers[window] = std::move(buffer)).get();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

/// Opens a batch. `start` prepares the buffer of the outermost one of a window.
template <class Start>
void Open_Batch(HWND window, Start start) {
    Enter_Lock();
    Surface& surface = The_Surface();
    const auto open = std::find_if(surface.batches.begin(), surface.batches.end(),
                                   [&](const Batch& batch) { return batch.window == window; });
    if (open != surface.batches.end()) {
        surface.batches.push_back({window, open->buffer, false});
        return;
    }
    Window_Buffer* buffer = Buffer_For(surface, window);
    if (buffer) start(*buffer);
    surface.batches.push_back({window, buffer, true});
}

/// Fills a rectangle in device coordinates.
void Fill(const View& view, RECT area, unsigned long color) {
    if (!view.dc || IsRectEmpty(&area)) return;
    if (view.mapped) {
        area.top = view.height - 1 - area.top;
        area.bottom = view.height - 1 - area.bottom;
    }
    SetDCBrushColor(view.dc, color & 0xFFFFFF);
    FillRect(view.dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

}  // namespace

Drawing_Lock::Drawing_Lock() { Enter_Lock(); }

Drawing_Lock::~Drawing_Lock() { Leave_Lock(); }

View Take_Surface(HWND window) { return Take(window, false).view; }

namespace {

/// Takes the surface off screen with `take`, or else as it comes.
template <class Take_Picture>
View Take_Composed(HWND window, Take_Picture take) {
    Enter_Lock();
    Surface& surface = The_Surface();
    if (!take(surface)) {
        const View view = Take(window, false).view;
        Leave_Lock();
        return view;
    }
    ++surface.levels.back().holders;
    return surface.levels.back().view;
}

}  // namespace

View Take_Surface(HWND window, const RECT& covered) {
    return Take_Composed(window, [&](Surface& surface) { return Take_Scratch(surface, window, covered); });
}

View Take_Surface(HWND window, const RECT& covered, unsigned& picture) {
    return Take_Composed(window, [&](Surface& surface) {
        const bool taken = Take_Kept(surface, window, covered, picture);
        if (!taken) picture = 0;
        return taken;
    });
}

void Forget_Kept_Picture() {
    const Drawing_Lock lock;
    Surface& surface = The_Surface();
    if (surface.kept) surface.kept->number = ++surface.kept_number;
}

void Raise_Kept_Picture(int rows) {
    const Surface& surface = The_Surface();
    if (surface.kept && surface.levels.back().buffer == surface.kept.get()) surface.kept->Raise(rows);
}

void Give_Back_Surface() { Give_Back(false); }

HWND Window_In_Use() { return Holds_Lock() ? Z_Window : nullptr; }

void Use_Font(HFONT font) {
    const HGDIOBJ wanted = font ? font : GetStockObject(SYSTEM_FONT);
    Level& level = The_Surface().levels.back();
    if (level.buffer && level.buffer->font == wanted) return;
    const HGDIOBJ before = GetCurrentObject(Z_DC, OBJ_FONT);
    if (before != wanted) {
        SelectObject(Z_DC, wanted);
        if (!level.font_before) level.font_before = before;
    }
    if (level.buffer && level.applications == 0) level.buffer->font = wanted;
}

void Put_Away_Font(HFONT font) {
    Drawing_Lock lock;
    Surface& surface = The_Surface();
    const auto put_away = [font](Back_Buffer& buffer) {
        if (GetCurrentObject(buffer.Context(), OBJ_FONT) != font) return;
        SelectObject(buffer.Context(), GetStockObject(SYSTEM_FONT));
        buffer.font = nullptr;
    };
    if (surface.scratch) put_away(*surface.scratch);
    if (surface.kept) put_away(*surface.kept);
    for (const auto& entry : surface.buffers)
        put_away(*entry.second);
}

bool Find_Pointer(HWND window, POINT& position) {
    position = {ZCursor_X, ZCursor_Y};
    if (!window) return false;
    const SIZE client = Client_Size(window);
    if (client.cx < 1 || client.cy < 1 || !ScreenToClient(window, &position)) return false;
    position.y = client.cy - 1 - position.y;
    return true;
}

void Free_Back_Buffers() {
    Drawing_Lock lock;
    The_Surface().buffers.clear();
    The_Surface().scratch.reset();
    The_Surface().kept.reset();
}

}  // namespace galdren

using namespace galdren;

void Begin_Draw(HWND window, HRGN) { Take(window, true); }

void End_Draw() { Give_Back(true); }

void Clip_Rect(int x, int y, int w, int h) {
    POINT corners[2] = {{x, y}, {x + w, y + h}};
    LPtoDP(Z_DC, corners, 2);
    const HRGN region = CreateRectRgn(corners[0].x, corners[0].y, corners[1].x, corners[1].y);
    SelectClipRgn(Z_DC, region);
    if (region) DeleteObject(region);
}

void Clip_Reset() {
    const SIZE client = Client_Size(Z_Window);
    const HRGN region = CreateRectRgn(0, 0, client.cx, client.cy);
    SelectClipRgn(Z_DC, region);
    if (region) DeleteObject(region);
}

void Begin_Batch(HWND window) {
    Open_Batch(window, [window](Window_Buffer& buffer) { buffer.Load(window); });
}

void Begin_Batch(HWND window, const RECT& area, unsigned long color) {
    Open_Batch(window, [&area](Window_Buffer& buffer) { buffer.Limit(area); });
    const View view = Take_Surface(window);
    Fill(view, area, color);
    Give_Back_Surface();
}

void End_Batch() {
    if (!Holds_Lock()) return;
    Surface& surface = The_Surface();
    if (surface.batches.empty()) return;
    const Batch batch = surface.batches.back();
    surface.batches.pop_back();
    if (batch.outermost && batch.buffer) batch.buffer->Show(batch.window);
    Leave_Lock();
}

namespace {
const Cleanup Buffers_Cleanup(Free_Back_Buffers);
}
