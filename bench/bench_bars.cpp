// Sliders and valuators, beside the native scroll bar and trackbar: a step of a drag, a step of the wheel,
// `Read`, what they hold.

#include <cmath>
#include <memory>

#include "footprint.h"
#include "scene.h"

namespace {

using bench::Back_And_Forth;
using bench::Compare_Steps;
using bench::Native_Side;
using bench::Our_Side;
using bench::Painting;
using bench::Require;
using bench::Result;
using bench::Shown;
using bench::Stage;
using bench::Steps;

constexpr RECT Slider_Place{40, 40, 340, 56};
constexpr RECT Valuator_Place{40, 40, 340, 66};

/// A drag goes by as many pixels, and back.
constexpr int Way = 50;
/// Distance of the pointer from the left edge where the drag turns.
constexpr int Nearest = 60;

/// At least this many pixels change when a thumb moves by one, its edges along the bar.
constexpr int Thumb_Edges = 10;

void Fill_Slider(Sliders& slider) {
    bench::Place(slider, Slider_Place);
    slider.Start_Val = 0;
    slider.End_Val = 1000;
}

void Fill_Valuator(Valuators& valuator) {
    bench::Place(valuator, Valuator_Place);
    valuator.Name = "Volume";
    valuator.Flag = FLAG_TEXT_MIDDLE | FLAG_TEXT_LEFT;
    valuator.Format = "%.1f";
    valuator.Num_Width = NUM_DIM;
    valuator.Start_Val = 0;
    valuator.End_Val = 1000;
}

void Fill_Logarithmic(Valuators& valuator) {
    Fill_Valuator(valuator);
    valuator.Flag |= VALUATOR_LOG_10;
    valuator.Start_Val = 1;
    valuator.Val = 10;
}

/// Client coordinates in a bar, at a distance from its left edge.
POINT In_Bar(const RECT& place, int distance) {
    return {place.left + distance, (place.top + place.bottom) / 2};
}

/// What an application does when the pointer moves with the button held.
template <class Bar>
void Drag_To(const Stage& stage, Bar& bar, POINT client) {
    bench::Put_Pointer(stage, client);
    if (!bar.Select(EVENT_DRAG | EVENT_LEFT)) return;
    bar.Val = bar.Read();
    bar.Adjust();
}

/// The thumb of one of our bars is dragged by one pixel a step.
template <class Bar>
Steps Drag_Ours(Our_Side<Bar>& ours, const RECT& place) {
    Drag_To(ours.Window(), ours.Get(), In_Bar(place, Nearest));
    return {ours.Window(), place, Thumb_Edges, [&ours, place](int step) {
                Drag_To(ours.Window(), ours.Get(), In_Bar(place, Nearest + Back_And_Forth(step + 1, Way)));
            }};
}

class Native_Scroll_Bar : public Native_Side {
  public:
    Native_Scroll_Bar() : Native_Side("SCROLLBAR", "", WS_VISIBLE | SBS_HORZ, Slider_Place) {
        const int button = GetSystemMetrics(SM_CXHSCROLL);
        // With as many positions as pixels the thumb moves by one at a time.
        const int track = Slider_Place.right - Slider_Place.left - 2 * button - GetSystemMetrics(SM_CXHTHUMB);
        SetScrollRange(Get().Get(), SB_CTL, 0, track, FALSE);
        Move_To(0);
        bench::Require_Classic(Window(), {Slider_Place.left + 3, Slider_Place.top + 3});
    }
    void Move_To(int distance) const { SetScrollPos(Get().Get(), SB_CTL, Nearest + distance, TRUE); }
};

template <Shown shown, Painting painting = Painting::In_Batch>
Result Slider_Drag() {
    Our_Side<Sliders> ours(Fill_Slider, painting);
    Native_Scroll_Bar native;
    return Compare_Steps(Drag_Ours(ours, Slider_Place),
                         {native.Window(), Slider_Place, Thumb_Edges,
                          [&](int step) { native.Move_To(Back_And_Forth(step + 1, Way)); }},
                         2 * Way, shown);
}

template <Shown shown, Painting painting = Painting::In_Batch>
Result Valuator_Drag() {
    Our_Side<Valuators> ours(Fill_Valuator, painting);
    bench::Native_Trackbar native(Valuator_Place);
    native.Move_To(Nearest);
    return Compare_Steps(Drag_Ours(ours, Valuator_Place),
                         {native.Window(), Valuator_Place, Thumb_Edges,
                          [&](int step) { native.Move_To(Nearest + Back_And_Forth(step + 1, Way)); }},
                         2 * Way, shown);
}

/// The wheel moves a valuator with a logarithmic scale, and the trackbar by as much.
template <Shown shown>
Result Valuator_Wheel() {
    constexpr int Notches = 20;
    constexpr int Notches_In_Range = 50;
    Our_Side<Valuators> ours(Fill_Logarithmic);
    bench::Native_Trackbar native(Valuator_Place);
    const int notch = native.Positions() / Notches_In_Range;
    native.Move_To(notch);
    bench::Put_Pointer(ours.Window(), In_Bar(Valuator_Place, Nearest));
    ours.Get().Select(EVENT_MOVE);
    return Compare_Steps({ours.Window(), Valuator_Place, Thumb_Edges,
                          [&](int step) { ours.Get().Scroll(step % (2 * Notches) < Notches ? -1 : 1); }},
                         {native.Window(), Valuator_Place, Thumb_Edges,
                          [&](int step) { native.Move_To(notch * (1 + Back_And_Forth(step + 1, Notches))); }},
                         2 * Notches, shown);
}

/// The pointer is on another pixel for every `Read`.
template <class Bar, void (*fill)(Bar&)>
Result Read_Value() {
    constexpr int Reads = 1000;
    Our_Side<Bar> ours(fill);
    const RECT place = Slider_Place;
    const POINT first = In_Bar(place, Nearest);
    bench::Put_Pointer(ours.Window(), first);
    const int screen_x = ZCursor_X;
    const float at_first = ours.Get().Read();
    float sum = 0;
    const auto read_all = [&] {
        sum = 0;
        for (int i = 0; i < Reads; ++i) {
            ZCursor_X = screen_x + i % Way;
            sum += ours.Get().Read() - at_first;
        }
    };
    const bench::Summary time = bench::Time({read_all, Reads});
    Require(std::isfinite(sum) && sum > 0, "the pointer was not read");
    return {time, {}};
}

/// What one more bar holds, itself included.
template <class Bar, void (*fill)(Bar&)>
Result Memory_Each() {
    constexpr int Count = 100;
    const Stage stage;
    const auto bytes_of = [&](int count) {
        const double before = bench::Heap_Bytes();
        const auto bars = std::make_unique<Bar[]>(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            fill(bars[static_cast<std::size_t>(i)]);
            bars[static_cast<std::size_t>(i)].Init(stage.Get());
        }
        return bench::Heap_Bytes() - before;
    };
    return {bench::Repeat([&] { return (bytes_of(Count) - bytes_of(1)) / (Count - 1); }), {}};
}

using bench::At_Most;
using bench::No_Target;
using bench::Of_Native;

const bench::Register rows[] = {
    bench::Register(
        {"slider: step of a drag, on display", "us", Of_Native(0.13), Slider_Drag<Shown::Together>}),
    bench::Register({"slider: step of a drag, held, on display", "us", Of_Native(0.07),
                     Slider_Drag<Shown::Together, Painting::Held>}),
    bench::Register(
        {"slider: step of a drag, each on display", "us", No_Target(), Slider_Drag<Shown::One_By_One>}),
    bench::Register({"slider: memory, each", "bytes", No_Target(), Memory_Each<Sliders, Fill_Slider>}),
    bench::Register({"slider: Read", "us", At_Most(1), Read_Value<Sliders, Fill_Slider>}),
    bench::Register(
        {"valuator: step of a drag, on display", "us", Of_Native(0.06), Valuator_Drag<Shown::Together>}),
    bench::Register({"valuator: step of a drag, held, on display", "us", Of_Native(0.04),
                     Valuator_Drag<Shown::Together, Painting::Held>}),
    bench::Register(
        {"valuator: step of a drag, each on display", "us", No_Target(), Valuator_Drag<Shown::One_By_One>}),
    bench::Register(
        {"valuator: wheel, logarithmic, on display", "us", Of_Native(0.2), Valuator_Wheel<Shown::Together>}),
    bench::Register({"valuator: wheel, logarithmic, each on display", "us", No_Target(),
                     Valuator_Wheel<Shown::One_By_One>}),
    bench::Register({"valuator: memory, each", "bytes", No_Target(), Memory_Each<Valuators, Fill_Valuator>}),
    bench::Register({"valuator: Read", "us", At_Most(1), Read_Value<Valuators, Fill_Valuator>}),
};

}  // namespace
