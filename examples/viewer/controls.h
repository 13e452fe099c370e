// Controls that the library does not have: a picture that is zoomed and dragged, a histogram, and a list of
// thumbnails.
#pragma once

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

#include "Galdren_Host.h"

constexpr unsigned long dark_ground = 0x24282C;

/// Shows all of a picture until it is zoomed. A drag, the wheel and keys change what is seen.
class Picture_View : public Pixel_Frame {
  public:
    double Zoom() const { return zoom; }

    void Show(Pixels another) { picture = std::move(another), Fit(); }

    void Fit() {
        fits = true;
        Init(nullptr);
        Draw();
    }

    /// What is in the middle stays there.
    void Set_Zoom(double wanted) { See(0, 0, wanted, {Room().cx / 2, Room().cy / 2}); }

    void Init(HWND window) {
        Pixel_Frame::Init(window);
        if (fits && !picture.Is_Empty()) zoom = double(Fit_Pixels(picture, Room()).cx) / picture.width;
        seen = {};
    }

    void Draw() {
        const SIZE size{std::lround(picture.width * zoom), std::lround(picture.height * zoom)}, room = Room();
        left = Kept(left, room.cx, size.cx), top = Kept(top, room.cy, size.cy);
        const int x = int(left), y = int(top);
        if (seen.Is_Empty())
            seen = Scale_Pixels(picture, size, {x, y, x + room.cx, y + room.cy}, dark_ground);
        Paint(seen);
    }

    int Select(int event) {
        const int kind = event & 15;
        const POINT before = pointer;
        if (kind != EVENT_TEST) pointer = Pointer();
        if (kind == EVENT_DRAG) See(before.x - pointer.x, before.y - pointer.y, zoom, {});
        return kind == EVENT_DRAG || Is_Pointed();
    }

    /// The wheel: what is under the pointer stays there.
    void Scroll(int steps) { See(0, 0, zoom * std::pow(1.25, steps), Pointer()); }

    void Input(int key) {
        const int step = Room().cx / 8;
        if (key == '+' || key == '-') Set_Zoom(key == '+' ? zoom * 1.25 : zoom / 1.25);
        if (key == (KEY_NAVIGATION | VK_LEFT)) See(-step, 0, zoom, {});
        if (key == (KEY_NAVIGATION | VK_RIGHT)) See(step, 0, zoom, {});
        if (key == (KEY_NAVIGATION | VK_UP)) See(0, -step, zoom, {});
        if (key == (KEY_NAVIGATION | VK_DOWN)) See(0, step, zoom, {});
    }

  private:
    /// Moves by pixels of the screen, and zooms about a point that stays where it is.
    void See(int right, int down, double wanted, POINT about) {
        const double before = std::exchange(zoom, std::clamp(wanted, 0.02, 32.0)), times = zoom / before;
        left = (left + about.x + right) * times - about.x;
        top = (top + about.y + down) * times - about.y;
        fits = false, seen = {};
        Draw();
    }

    /// A picture that has room stands in the middle; one that has not leaves none free.
    static double Kept(double start, int room, int length) {
        return room >= length ? (length - room) / 2 : std::clamp<double>(start, 0, length - room);
    }

    Pixels picture, seen;                // what shows of the picture; empty when it is to be made anew
    double zoom = 1, left = 0, top = 0;  // what is in the corner, in pixels as they are zoomed
    POINT pointer{};
    bool fits = true;
};

/// How often each level of red, green and blue occurs. Where bars meet, their lights add up.
class Histogram : public Pixel_Frame {
  public:
    void Count(const Pixels& picture) {
        std::fill_n(counts[0], 3 * 256, 0);
        for (const unsigned long pixel : picture.data)
            for (int channel = 0; channel < 3; ++channel)
                ++counts[channel][pixel >> 8 * channel & 0xFF];
        Draw();
    }

    void Draw() {
        const SIZE room = Room();
        Pixels bars = Scale_Pixels({}, {}, {0, 0, room.cx, room.cy}, dark_ground);
        for (int channel = 0; channel < 3; ++channel)
            Add_Bars(bars, counts[channel], 0xD0UL << 8 * channel);
        Paint(bars);
    }

  private:
    static void Add_Bars(Pixels& bars, const int (&levels)[256], unsigned long light) {
        const int most = std::max(1, *std::ranges::max_element(levels));
        for (int x = 0; x < bars.width; ++x) {
            // The square root lets what is rare be seen beside what is common.
            const double share = std::sqrt(double(levels[x * 256 / bars.width]) / most);
            for (int y = bars.height - int(share * bars.height); y < bars.height; ++y)
                bars.data[std::size_t(y * bars.width + x)] |= light;
        }
    }

    int counts[3][256] = {};
};

/// A list whose items show pictures above their names.
class Thumbnails : public Lists {
  public:
    std::vector<Pixels> Pictures;  ///< of the first items

    void Init(HWND window) {
        Lists::Init(window);  // says how large the items are
        if (Pictures.empty()) return;
        const std::tuple now(Item[0], Item[0]->Width, Item[0]->Height, Look);
        if (std::exchange(made_for, now) != now) dressed = 0;
        for (; dressed < Pictures.size(); ++dressed)
            Dress(*Item[dressed], Pictures[dressed]);
        Lists::Init(window);  // takes their pictures
    }

  private:
    void Dress(Buttons& item, const Pixels& picture) const {
        const Theme theme = Look ? *Look : Theme();
        const Colors ground(unsigned(Look ? theme.Window : 0x827A76)), lit(unsigned(theme.Highlight));
        if (item.Alloc_Graph_Normal(ground.get_invert())) Place(picture, item, item.Graph_Normal);
        if (item.Alloc_Graph_Select(lit.get_invert())) Place(picture, item, item.Graph_Select);
    }

    /// In the middle of the room above the line of the name.
    static void Place(const Pixels& picture, const Buttons& item, unsigned long* pixels) {
        const int margin = item.Border + 4;
        const SIZE room{item.Width - 2 * margin, item.Height - margin - 2 * item.Font_Size};
        const Pixels small = Scale_Pixels(picture, Fit_Pixels(picture, room));
        const int left = (item.Width - small.width) / 2, top = margin + (room.cy - small.height) / 2;
        for (int y = 0; y < small.height; ++y)
            std::copy_n(&small.data[std::size_t(y * small.width)], small.width,
                        pixels + (top + y) * item.Width + left);
    }

    std::size_t dressed = 0;  // items that show theirs
    std::tuple<Buttons*, short, short, const Theme*> made_for;
};
