// Tab sets, beside the native tab control: painting, the next tab brought to the front.

#include <windows.h>

#include <commctrl.h>  // does not include windows.h

#include "scene.h"

namespace {

using bench::Compare;
using bench::Compare_Steps;
using bench::Native_Side;
using bench::Our_Side;
using bench::Painting;
using bench::Require;
using bench::Result;
using bench::Shown;
using bench::Stage;

constexpr RECT Place{30, 40, 830, 66};
constexpr const char* Captions[] = {"Boxes", "Labels",    "Buttons", "Check lists", "Sliders",
                                    "Lists", "Selectors", "Icons",   "Folders",     "Tabs"};
constexpr int Count = 10;

/// At least this many pixels change when another tab comes to the front.
constexpr int Edge_Pixels = 30;

void Fill(Tabs& set) {
    bench::Place(set, Place);
    bench::Name_Items(set, Captions);
}

class Native_Tabs : public Native_Side {
  public:
    Native_Tabs()
        : Native_Side(bench::Common_Control(ICC_TAB_CLASSES, WC_TABCONTROLA), "",
                      WS_VISIBLE | TCS_FIXEDWIDTH | TCS_FOCUSNEVER, Place) {
        constexpr int width = (Place.right - Place.left) / Count - 2;
        Get().Send(TCM_SETITEMSIZE, 0, MAKELPARAM(width, Place.bottom - Place.top - 4));
        for (int i = 0; i < Count; ++i) {
            char caption[32];
            lstrcpynA(caption, Captions[i], sizeof caption);
            TCITEMA item{};
            item.mask = TCIF_TEXT;
            item.pszText = caption;
            Require(Get().Send(TCM_INSERTITEMA, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item)) == i,
                    "the native control takes no tab");
        }
        Window().Repaint();
        bench::Require_Classic(Window(), {Place.right - 3, Place.top + 3});
    }
    void Choose(int index) const {
        Get().Send(TCM_SETCURSEL, static_cast<WPARAM>(index));
        UpdateWindow(Get().Get());
    }
};

/// Both controls paint themselves anew, without their windows: ours its ground and all tabs.
Result Paint_Anew() {
    constexpr int Times = 20;
    Our_Side<Tabs> ours(Fill);
    Native_Tabs native;
    bench::Require_Repainted(ours.Window(), &Place, 1);
    bench::Require_Repainted(native.Window(), &Place, 1);
    const auto repeat = [](const auto& paint) {
        return [paint] {
            for (int i = 0; i < Times; ++i)
                paint();
            bench::Flush();
        };
    };
    const auto paint_ours = [&] {
        ours.Get().Clear();
        ours.Get().Draw();
    };
    const auto paint_native = [&] {
        RedrawWindow(native.Get().Get(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    };
    return Compare({repeat(paint_ours), Times, [&] { ours.Window().Raise(); }},
                   {repeat(paint_native), Times, [&] { native.Window().Raise(); }});
}

bench::Work Repaint_Place(const Stage& stage) {
    constexpr int Times = 20;
    return {[&stage] {
                for (int i = 0; i < Times; ++i)
                    stage.Repaint(Place);
                bench::Flush();
            },
            Times, [&stage] { stage.Raise(); }};
}

template <Painting way>
Result Repaint() {
    Our_Side<Tabs> ours(Fill, way);
    Native_Tabs native;
    bench::Require_Repainted(ours.Window(), &Place, 1);
    bench::Require_Repainted(native.Window(), &Place, 1);
    return Compare(Repaint_Place(ours.Window()), Repaint_Place(native.Window()));
}

template <Shown shown>
Result Choose_Next() {
    Our_Side<Tabs> ours(Fill);
    Native_Tabs native;
    const auto next = [&](int step) {
        ours.Get().Value = static_cast<short>((step + 1) % Count);
        ours.Get().Adjust();
    };
    return Compare_Steps(
        {ours.Window(), Place, Edge_Pixels, next},
        {native.Window(), Place, Edge_Pixels, [&](int step) { native.Choose((step + 1) % Count); }},
        2 * Count, shown);
}

using bench::No_Target;
using bench::Of_Native;

const bench::Register rows[] = {
    bench::Register({"tabs: repaint in a batch", "us", Of_Native(0.15), Repaint<Painting::In_Batch>}),
    bench::Register({"tabs: repaint without batch", "us", Of_Native(0.15), Repaint<Painting::One_By_One>}),
    bench::Register({"tabs: painted anew, on display", "us", Of_Native(0.15), Paint_Anew}),
    bench::Register(
        {"tabs: next one chosen, on display", "us", Of_Native(0.1), Choose_Next<Shown::Together>}),
    bench::Register(
        {"tabs: next one chosen, each on display", "us", No_Target(), Choose_Next<Shown::One_By_One>}),
};

}  // namespace
