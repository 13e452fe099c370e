// Lists, short and very long, beside the native list box: making one, what it holds, scrolling, the mark.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "footprint.h"
#include "scene.h"

namespace {

using bench::Back_And_Forth;
using bench::Compare;
using bench::Compare_Steps;
using bench::Footprint;
using bench::Native_Control;
using bench::Our_Side;
using bench::Require;
using bench::Require_Each_Shows;
using bench::Result;
using bench::Shown;
using bench::Stage;
using bench::Steps;
using bench::Summary;

constexpr int Few = 200;
constexpr int Many = 20'000;
constexpr RECT List_Place{40, 40, 440, 440};
/// The place of the names, without the scroll bars.
constexpr RECT Names_Place{70, 50, 410, 430};
/// Of ours and, so that both show as many items, of the native ones.
constexpr int Item_Height = 25;
constexpr int Item_Pitch = Item_Height + 1;
/// At least this many pixels change when other names are shown.
constexpr int Names_Pixels = 100;

const char* Name_Of(int index) {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> made;
        made.reserve(Many);
        for (int i = 0; i < Many; ++i)
            made.push_back("Item " + std::to_string(10'000 + i));
        return made;
    }();
    return names[static_cast<std::size_t>(index)].c_str();
}

void Fill_List(Lists& list, int count) {
    bench::Place(list, List_Place);
    list.Flag = FLAG_VERTICAL;
    list.Item_Height = Item_Height;
    Require(list.Grow(count, 0) == 1, "there is no memory for the items");
    for (int i = 0; i < count; ++i)
        list.Item[i]->Set_Name("%s", Name_Of(i));
}

template <int count>
void Fill(Lists& list) {
    Fill_List(list, count);
}

/// A native list that is not shown yet.
Native_Control Make_Native(const Stage& stage, int count) {
    Native_Control list(stage, "LISTBOX", "", WS_BORDER | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                        List_Place);
    list.Send(WM_SETREDRAW, FALSE);
    list.Send(LB_SETITEMHEIGHT, 0, Item_Pitch);
    for (int i = 0; i < count; ++i)
        list.Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Name_Of(i)));
    list.Send(WM_SETREDRAW, TRUE);
    return list;
}

void Show_Native(const Native_Control& list) {
    ShowWindow(list.Get(), SW_SHOW);
    UpdateWindow(list.Get());
}

class Native_List {
  public:
    explicit Native_List(int count) : list(Make_Native(stage, count)) {
        Show_Native(list);
        stage.Raise();
        stage.Repaint();
        bench::Require_Classic(stage, {List_Place.right - 5, List_Place.top + 5});
    }
    const Stage& Window() const { return stage; }
    const Native_Control& Get() const { return list; }

  private:
    Stage stage;
    Native_Control list;
};

/// From nothing to a list on the display.
Result Make_And_Draw() {
    Stage our_stage;
    Stage native_stage;
    bench::Put_Pointer(our_stage, bench::Gap);
    std::unique_ptr<Lists> ours;
    std::optional<Native_Control> native;
    const auto make_ours = [&] {
        ours = std::make_unique<Lists>();
        Fill_List(*ours, Many);
        ours->Init(our_stage.Get());
        ours->Draw();
        bench::Flush();
    };
    const auto make_native = [&] {
        native.emplace(Make_Native(native_stage, Many));
        Show_Native(*native);
        bench::Flush();
    };
    // A list that is gone is painted over, so that the next one shows by itself.
    const auto clear = [](const Stage& stage) {
        stage.Raise();
        stage.Repaint();
    };
    const auto clear_ours = [&] {
        ours.reset();
        clear(our_stage);
    };
    const auto clear_native = [&] {
        native.reset();
        clear(native_stage);
    };
    clear_ours();
    clear_native();
    Require_Each_Shows(
        {our_stage, Names_Place, Names_Pixels, [&](int step) { step % 2 == 0 ? make_ours() : clear_ours(); }},
        2);
    Require_Each_Shows({native_stage, Names_Place, Names_Pixels,
                        [&](int step) { step % 2 == 0 ? make_native() : clear_native(); }},
                       2);
    return Compare({make_ours, 1, clear_ours}, {make_native, 1, clear_native});
}

/// What a list of ours holds when it has been painted at many places of its bar. Most are between two items,
/// so that the items stand in other places every time.
Footprint Measure_Ours(const Stage& stage, int count) {
    Tools_Lib_Cleanup();
    const Footprint before = bench::Present_Footprint();
    Lists list;
    Fill_List(list, count);
    list.Init(stage.Get());
    constexpr int Draws = 100;
    const Sliders& bar = list.Scroll_Bar;
    for (int i = 0; i < Draws; ++i) {
        list.Scroll_Bar.Val = bar.Start_Val + (bar.End_Val - bar.Start_Val) * static_cast<float>(i) / Draws;
        list.Draw();
    }
    // The object itself is on the stack.
    const Footprint held = bench::Present_Footprint() - before;
    return {held.objects, held.bytes + sizeof list};
}

Footprint Measure_Native(const Stage& stage, int count) {
    const Footprint before = bench::Present_Footprint();
    const Native_Control list = Make_Native(stage, count);
    Show_Native(list);
    return bench::Present_Footprint() - before;
}

template <class Value>
Summary Repeat_Footprint(Footprint (*measure)(const Stage&, int), int count, Value value) {
    Stage stage;
    stage.Raise();
    bench::Put_Pointer(stage, bench::Gap);
    return bench::Repeat([&] { return value(measure(stage, count)); });
}

Result Memory() {
    const auto megabytes = [](const Footprint& footprint) { return footprint.bytes / 1e6; };
    return {Repeat_Footprint(Measure_Ours, Many, megabytes),
            Repeat_Footprint(Measure_Native, Many, megabytes)};
}

Result Objects() {
    const auto objects = [](const Footprint& footprint) { return footprint.objects; };
    const double of_empty = Repeat_Footprint(Measure_Ours, 0, objects).median;
    return {Repeat_Footprint(Measure_Ours, Many,
                             [&](const Footprint& footprint) { return footprint.objects - of_empty; }),
            {}};
}

constexpr int Notches = 20;

/// Our list is scrolled by one item a step, with the pointer on an item.
Steps Scroll_Ours(Our_Side<Lists>& ours) {
    static constexpr POINT On_Item{240, 240};
    bench::Put_Pointer(ours.Window(), On_Item);
    ours.Get().Select(EVENT_MOVE);
    return {ours.Window(), Names_Place, Names_Pixels, [&ours](int step) {
                bench::Put_Pointer(ours.Window(), On_Item);
                ours.Get().Scroll(step % (2 * Notches) < Notches ? 1 : -1);
            }};
}

Steps Scroll_Native(const Native_List& native) {
    return {native.Window(), Names_Place, Names_Pixels, [&native](int step) {
                native.Get().Send(WM_VSCROLL, step % (2 * Notches) < Notches ? SB_LINEDOWN : SB_LINEUP);
                UpdateWindow(native.Get().Get());
            }};
}

template <int count, Shown shown>
Result Scroll() {
    Our_Side<Lists> ours(Fill<count>);
    Native_List native(count);
    return Compare_Steps(Scroll_Ours(ours), Scroll_Native(native), 2 * Notches, shown);
}

/// The short list stands in for the native one.
Result Scroll_Long_And_Short() {
    Our_Side<Lists> ours(Fill<Many>);
    Our_Side<Lists> few(Fill<Few>);
    return Compare_Steps(Scroll_Ours(ours), Scroll_Ours(few), 2 * Notches, Shown::Together);
}

template <Shown shown>
Result Move_Mark() {
    constexpr int Marks = 10;
    constexpr int Marked_Pixels = 1000;
    Our_Side<Lists> ours(Fill<Many>);
    Native_List native(Many);
    native.Get().Send(LB_SETCURSEL, 0);
    const auto mark_ours = [&](int step) {
        ours.Get().Current = static_cast<short>(Back_And_Forth(step + 1, Marks));
        ours.Get().Adjust();
    };
    const auto mark_native = [&](int step) {
        native.Get().Send(LB_SETCURSEL, static_cast<WPARAM>(Back_And_Forth(step + 1, Marks)));
    };
    return Compare_Steps({ours.Window(), Names_Place, Marked_Pixels, mark_ours},
                         {native.Window(), Names_Place, Marked_Pixels, mark_native}, 2 * Marks, shown);
}

using bench::At_Most;
using bench::No_Target;
using bench::Of_Native;

const bench::Register rows[] = {
    bench::Register({"list: 20,000 named items made and drawn", "us", Of_Native(0.4), Make_And_Draw}),
    bench::Register({"list: memory of 20,000 items", "MB", At_Most(12), Memory}),
    bench::Register({"list: GDI objects of 20,000 items", "objects", At_Most(100), Objects}),
    bench::Register(
        {"list: scroll 200 by one, on display", "us", Of_Native(0.15), Scroll<Few, Shown::Together>}),
    bench::Register(
        {"list: scroll 200 by one, each on display", "us", No_Target(), Scroll<Few, Shown::One_By_One>}),
    bench::Register(
        {"list: scroll 20,000 by one, on display", "us", Of_Native(0.15), Scroll<Many, Shown::Together>}),
    bench::Register(
        {"list: scroll 20,000 by one, each on display", "us", No_Target(), Scroll<Many, Shown::One_By_One>}),
    bench::Register({"list: scroll 20,000, beside our 200", "us", Of_Native(1.15), Scroll_Long_And_Short}),
    bench::Register({"list: mark moved by one, on display", "us", Of_Native(1), Move_Mark<Shown::Together>}),
    bench::Register(
        {"list: mark moved by one, each on display", "us", No_Target(), Move_Mark<Shown::One_By_One>}),
};

}  // namespace
