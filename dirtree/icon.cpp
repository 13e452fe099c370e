#include "dirtree/icon.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <string_view>

#include "dirtree/icon_file.h"
#include "tools/base.h"
#include "tools/cleanup.h"
#include "tools/sharing.h"
#include "tools/surface.h"
#include "tools/window.h"
#include "util/error.h"
#include "util/program.h"

namespace galdren {

namespace {

constexpr std::size_t Most_Icons = 255;

/// A place in the cache.
struct Slot : Icon_Entry {
    std::size_t hash;  ///< of the name: most names need no comparison
};

/// By the hashes of the names. Never more than half full, so that few of them meet.
constexpr std::size_t Slots = 2 * Most_Icons;
Slot Cache[Slots];
std::size_t Icons_Kept;

std::size_t Hash_Of(const char* name) { return std::hash<std::string_view>()(name); }

/// The slot of the icon called `name`, or the free one for it.
Slot& Find_Slot(const char* name) {
    const std::size_t hash = Hash_Of(name);
    std::size_t place = hash % Slots;
    while (Cache[place].name && (Cache[place].hash != hash || std::strcmp(Cache[place].name, name) != 0))
        place = (place + 1) % Slots;
    return Cache[place];
}

/// Gives a free slot to `name`. It stays free when the cache is full, or there is no memory for the copy.
bool Take_Slot(Slot& slot, const char* name) {
    slot.name = Icons_Kept < Most_Icons ? Duplicate(name) : nullptr;
    if (!slot.name) return false;
    slot.hash = Hash_Of(name);
    ++Icons_Kept;
    return true;
}

/// Gives the surface of an application back while a file is read, which takes long, and takes it again for
/// the box, clipped to its rectangle. A surface that more than one `Begin_Draw` holds stays.
class Surface_Aside {
  public:
    explicit Surface_Aside(const Boxs* next) : box(Window_In_Use() ? next : nullptr) {
        if (!box || Critical.RecursionCount != 1) return;
        End_Draw();
        given_back = !Window_In_Use();
    }
    ~Surface_Aside() {
        if (!box) return;
        if (given_back) Begin_Draw(box->Window, box->Clip_Region);
        Clip_Rect(box->X, box->Y, box->Width, box->Height);
    }
    Surface_Aside(const Surface_Aside&) = delete;
    Surface_Aside& operator=(const Surface_Aside&) = delete;

  private:
    const Boxs* box;
    bool given_back = false;
};

/// What an icon takes at the scale of a box.
Area Place_Of(const Boxs& box, const Icon_Entry& icon, int x, int y) {
    return {x, x + Scaled(box, icon.width), y, y + Scaled(box, icon.height)};
}

/// The icon, when its place touches the box and the box is painted.
const Icon_Entry* Find_Shown(Boxs* box, int x, int y, const char* name) {
    if (!box || box->Veil) return nullptr;
    const auto* icon = static_cast<const Icon_Entry*>(Icon_Read(box, name));
    if (!icon) return nullptr;
    const Area shared = Common(Area_Of(*box), Place_Of(*box, *icon, x, y));
    return shared.left <= shared.right && shared.bottom <= shared.top ? icon : nullptr;
}

/// The surface in use, or else the box's own.
HWND Window_For(const Boxs& box) {
    const HWND in_use = Window_In_Use();
    return in_use ? in_use : box.Window;
}

/// One byte of a pixel over that of the background. The pixel's counts as signed, so what is bright and half
/// clear at once comes out in another colour. Numbers of 16 bits are enough, of which the processor takes
/// eight at once.
unsigned long Blend_Byte(unsigned long pixel, unsigned long background, unsigned short weight) {
    const auto over = static_cast<unsigned short>(static_cast<signed char>(pixel));
    const auto under = static_cast<unsigned char>(background);
    return static_cast<unsigned short>(over * weight + under * (255 - weight)) >> 8;
}

/// @param background  in the GDI form
unsigned long Blend(unsigned long pixel, unsigned long background) {
    const auto weight = static_cast<unsigned short>(pixel >> 24);
    return 0xFF000000 | Blend_Byte(pixel, background >> 16, weight) |
           Blend_Byte(pixel >> 8, background >> 8, weight) << 8 |
           Blend_Byte(pixel >> 16, background, weight) << 16;
}

/// Room for the blended pixels of an icon: without an allocation for those that are usual.
class Blend_Buffer {
  public:
    explicit Blend_Buffer(std::size_t count)
        : large(count > Usual ? new (std::nothrow) unsigned long[count] : nullptr),
          pixels(count > Usual ? large.get() : usual) {}
    unsigned long* Get() { return pixels; }

  private:
    static constexpr std::size_t Usual = std::size_t{32} * 32;
    unsigned long usual[Usual];
    std::unique_ptr<unsigned long[]> large;
    unsigned long* pixels;
};

/// Paints an icon in the middle of its place, enlarged by a whole factor.
/// @param background  in the GDI form; black means that the pixels go as they are
void Paint_Icon(Canvas& canvas, const Icon_Entry& icon, const Area& place, const Zoom& zoom,
                unsigned long background) {
    const auto paint = [&](const unsigned long* pixels) {
        const POINT corner{
            place.left + Offset(Place::Middle, place.right - place.left, zoom.Of(icon.width)),
            place.bottom + Offset(Place::Middle, place.top - place.bottom, zoom.Of(icon.height))};
        canvas.Zoomed_Pixels(pixels, {icon.width, icon.height}, zoom, corner, place);
    };
    if (background == 0) return paint(icon.pixels);
    const std::size_t count = std::size_t{icon.width} * icon.height;
    Blend_Buffer blended(count);
    if (!blended.Get()) {
        Error_Fct(hwnd, ERROR_LEVEL_WARNING, "draw_image() failed in new");
        return;
    }
    std::transform(icon.pixels, icon.pixels + count, blended.Get(),
                   [background](unsigned long pixel) { return Blend(pixel, background); });
    paint(blended.Get());
}

const Cleanup Icons_Cleanup(Icon_Cleanup);

}  // namespace

}  // namespace galdren

using namespace galdren;

void* Icon_Read(Boxs* box, const char* name) {
    if (!name) return nullptr;
    Slot& slot = Find_Slot(name);
    if (!slot.name && Take_Slot(slot, name)) {
        const Surface_Aside aside(box);
        Read_Icon_File(slot);
    }
    return slot.pixels ? static_cast<Icon_Entry*>(&slot) : nullptr;
}

void Icon_Draw_Image(Boxs* box, short x, short y, const char* label, const char* name) {
    const auto shown = [](const char* text) { return text ? text : "(null)"; };
    Error_Fct(hwnd, ERROR_LEVEL_TRACE, "in Icon_Draw_Image(%s,%s)", shown(label), shown(name));
    const Icon_Entry* icon = Find_Shown(box, x, y, name);
    if (!icon) return;
    const Area place = Place_Of(*box, *icon, x, y);
    const Area painted{place.left, place.right - 1, place.bottom, place.top - 1};
    const Zoom zoom = Zoom_Between(Unscaled, box->Scale);
    const bool covers = zoom.Of(Unscaled) == Scaled(*box, Unscaled);
    Canvas canvas(Window_For(*box), covers ? Covering(painted) : Reach{painted}, box);
    Paint_Icon(canvas, *icon, place, zoom, Body_Color(canvas.Look(), box->Color).get());
}

void Icon_Draw_Border(Boxs* box, short x, short y, const char*, const char* name) {
    const Icon_Entry* icon = Find_Shown(box, x, y, name);
    if (!icon) return;
    const int line = Line_Width(*box);
    const Area place = Place_Of(*box, *icon, x, y);
    Canvas canvas(Window_For(*box), {place.Inset(-line)}, box);
    const Theme& theme = canvas.Look();
    canvas.Row(place.left, place.right, place.bottom - 1, theme.Rim, -line);
    canvas.Column(place.right, place.bottom - line, place.top, theme.Rim, line);
    canvas.Row(place.left - line, place.right, place.top, theme.Edge_Bright, line);
    canvas.Column(place.left - 1, place.bottom, place.top, theme.Edge_Bright, -line);
}

void Icon_Cleanup() {
    for (Slot& slot : Cache) {
        delete[] slot.name;
        delete[] slot.pixels;
        delete[] slot.swapped;
        slot = {};
    }
    Icons_Kept = 0;
}
