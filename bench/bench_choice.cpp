// Check lists and selectors, beside native check boxes and a push button that changes its text: painting, an
// item toggled, a step.

#include <string>
#include <vector>

#include "scene.h"

namespace {

using bench::Compare_Steps;
using bench::Native_Control;
using bench::Native_Side;
using bench::Our_Side;
using bench::Painting;
using bench::Require;
using bench::Result;
using bench::Shown;
using bench::Stage;
using bench::Steps;

constexpr int Items = 32;
constexpr RECT List_Place{40, 40, 440, 240};

const char* const* Labels() {
    static const std::vector<std::string> texts = [] {
        std::vector<std::string> made;
        made.reserve(Items);
        for (int i = 0; i < Items; ++i)
            made.push_back("Option " + std::to_string(i + 1));
        return made;
    }();
    static const std::vector<const char*> labels = [] {
        std::vector<const char*> made;
        made.reserve(Items + 1);
        for (const std::string& text : texts)
            made.push_back(text.c_str());
        made.push_back(nullptr);
        return made;
    }();
    return labels.data();
}

void Fill_List(CheckLists& list) {
    bench::Place(list, List_Place);
    list.List = Labels();
    list.Value = 0x5A5A5A5A;
}

/// Where the items of our list are, in client coordinates.
std::vector<RECT> Item_Places(const CheckLists& list) {
    std::vector<RECT> places;
    for (int i = 0; i < list.Count; ++i) {
        const Buttons& label = list.Label[i];
        const int top = Stage::Height - 1 - label.Y - label.Height;
        places.push_back({label.X, top, label.X + label.Width, top + label.Height});
    }
    return places;
}

/// As many native check boxes in the same places, with the same of them checked.
class Native_Boxes {
  public:
    explicit Native_Boxes(const std::vector<RECT>& places) {
        boxes.reserve(places.size());
        for (std::size_t i = 0; i < places.size(); ++i) {
            boxes.emplace_back(stage, "BUTTON", Labels()[i], WS_VISIBLE | BS_AUTOCHECKBOX, places[i]);
            boxes.back().Send(BM_SETCHECK, 0x5A5A5A5A >> i & 1U);
        }
        stage.Raise();
        stage.Repaint();
    }
    const Stage& Window() const { return stage; }
    void Toggle(int item) const {
        const Native_Control& box = boxes[static_cast<std::size_t>(item)];
        box.Send(BM_SETCHECK, box.Send(BM_GETCHECK) != BST_CHECKED);
    }

  private:
    Stage stage;
    std::vector<Native_Control> boxes;
};

/// The window outside the items takes longer to fill and to bring to the display than all of them.
bench::Work Repaint_Items(const Stage& stage) {
    return {[&stage] {
                stage.Repaint(List_Place);
                bench::Flush();
            },
            Items, [&stage] { stage.Raise(); }};
}

template <Painting way>
Result Repaint() {
    Our_Side<CheckLists> ours(Fill_List, way);
    const std::vector<RECT> places = Item_Places(ours.Get());
    Native_Boxes native(places);
    Require(places.size() == Items, "the list has not as many items");
    bench::Require_Repainted(ours.Window(), places.data(), Items);
    bench::Require_Repainted(native.Window(), places.data(), Items);
    return Compare(Repaint_Items(ours.Window()), Repaint_Items(native.Window()));
}

template <Shown shown, Painting painting = Painting::In_Batch>
Result Toggle() {
    constexpr int Mark_Pixels = 10;
    Our_Side<CheckLists> ours(Fill_List, painting);
    Native_Boxes native(Item_Places(ours.Get()));
    CheckLists& list = ours.Get();
    const auto toggle_ours = [&](int step) {
        list.Value = static_cast<int>(static_cast<unsigned>(list.Value) ^ 1U << step % Items);
        list.Adjust();
    };
    return Compare_Steps(
        {ours.Window(), List_Place, Mark_Pixels, toggle_ours},
        {native.Window(), List_Place, Mark_Pixels, [&](int step) { native.Toggle(step % Items); }}, 2 * Items,
        shown);
}

constexpr RECT Selector_Place{40, 40, 240, 72};
constexpr const char* Months[] = {"January", "February", "March",     "April",   "May",      "June",
                                  "July",    "August",   "September", "October", "November", "December"};
constexpr int Months_In_Year = 12;

/// At least this many pixels change with the name of the month.
constexpr int Name_Pixels = 20;

void Fill_Selector(Selects& selector) {
    bench::Place(selector, Selector_Place);
    bench::Name_Items(selector, Months);
}

/// A push button that shows one of the names, which is the least that native controls can show it with.
class Native_Name : public Native_Side {
  public:
    Native_Name() : Native_Side("BUTTON", Months[0], WS_VISIBLE | BS_PUSHBUTTON, Selector_Place) {}
    Steps Change() const {
        return {Window(), Selector_Place, Name_Pixels,
                [this](int step) { SetWindowTextA(Get().Get(), Months[(step + 1) % Months_In_Year]); }};
    }
};

template <Shown shown, Painting painting = Painting::In_Batch>
Result Step_By_Press() {
    Our_Side<Selects> ours(Fill_Selector, painting);
    Native_Name native;
    bench::Put_Pointer(ours.Window(), {Selector_Place.right - 15, Selector_Place.top + 16});
    ours.Get().Select(EVENT_MOVE);
    const auto press = [&](int) {
        Require(ours.Get().Select(EVENT_PRESS | EVENT_LEFT) == 1, "the pointer is not in the selector");
        ours.Get().Adjust();
    };
    return Compare_Steps({ours.Window(), Selector_Place, Name_Pixels, press}, native.Change(),
                         4 * Months_In_Year, shown);
}

template <Shown shown>
Result Step_By_Wheel() {
    Our_Side<Selects> ours(Fill_Selector);
    Native_Name native;
    return Compare_Steps({ours.Window(), Selector_Place, Name_Pixels, [&](int) { ours.Get().Scroll(-1); }},
                         native.Change(), 4 * Months_In_Year, shown);
}

using bench::No_Target;
using bench::Of_Native;

const bench::Register rows[] = {
    bench::Register(
        {"check list: repaint in a batch, an item", "us", Of_Native(0.06), Repaint<Painting::In_Batch>}),
    bench::Register(
        {"check list: repaint without batch, an item", "us", Of_Native(0.06), Repaint<Painting::One_By_One>}),
    bench::Register({"check list: item toggled, on display", "us", Of_Native(0.22), Toggle<Shown::Together>}),
    bench::Register({"check list: item toggled, held, on display", "us", Of_Native(0.15),
                     Toggle<Shown::Together, Painting::Held>}),
    bench::Register(
        {"check list: item toggled, each on display", "us", No_Target(), Toggle<Shown::One_By_One>}),
    bench::Register(
        {"selector: step by a press, on display", "us", Of_Native(0.27), Step_By_Press<Shown::Together>}),
    bench::Register({"selector: step by a press, held, on display", "us", Of_Native(0.15),
                     Step_By_Press<Shown::Together, Painting::Held>}),
    bench::Register(
        {"selector: step by a press, each on display", "us", No_Target(), Step_By_Press<Shown::One_By_One>}),
    bench::Register(
        {"selector: step by the wheel, on display", "us", Of_Native(0.27), Step_By_Wheel<Shown::Together>}),
    bench::Register({"selector: step by the wheel, each on display", "us", No_Target(),
                     Step_By_Wheel<Shown::One_By_One>}),
};

}  // namespace
