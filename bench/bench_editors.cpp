// The hue editor and the colour editor, beside the native trackbar: a step of a drag with the swatch. `Init`,
// and the rainbow alone.

#include <memory>

#include "scene.h"

namespace {

using bench::Back_And_Forth;
using bench::Compare_Steps;
using bench::Our_Side;
using bench::Painting;
using bench::Require;
using bench::Result;
using bench::Shown;
using bench::Stage;

constexpr RECT Hue_Place{40, 40, 300, 76};
constexpr RECT Color_Place{40, 40, 300, 160};  // the hue editor lies in it
constexpr RECT Wide_Place{40, 40, 440, 160};
constexpr RECT Trackbar_Place{40, 40, 340, 66};

/// A drag goes by as many pixels, and back, in the middle of a trough. The troughs have fewer pixels than a
/// channel has steps, so that the colour changes with every pixel.
constexpr int Way = 50;
constexpr int Nearest = 60;

/// At least this many pixels change when a thumb moves by one, its edges along the trough, or the swatch.
constexpr int Thumb_Edges = 10;

constexpr unsigned long First_Color = 0xFFB47832;

template <class Editor>
void Fill(Editor& editor, const RECT& place, unsigned long flag) {
    bench::Place(editor, place);
    editor.Name = "Colour";
    editor.Border = 2;
    editor.Flag = flag;
    editor.Value = First_Color;
}

void Fill_Hue(Hue_Edit& editor) { Fill(editor, Hue_Place, 0); }

template <unsigned long flag>
void Fill_Color(Color_Edit& editor) {
    Fill(editor, Color_Place, flag | COLOR_EDIT_MODE_BUTTON);
}

void Fill_Wide(Color_Edit& editor) { Fill(editor, Wide_Place, COLOR_EDIT_MODE_BUTTON); }

/// The trough that is dragged.
const Valuators& Trough(const Hue_Edit& editor) { return editor.Hue; }
const Valuators& Trough(const Color_Edit& editor) { return editor.Chan_1; }

/// Client coordinates in the trough, at a distance from its left edge.
template <class Editor>
POINT In_Trough(const Editor& editor, int distance) {
    const Valuators& trough = Trough(editor);
    return {trough.X + distance, Stage::Height - 1 - trough.Y - trough.Height / 2};
}

/// What an application does when the pointer moves with the button held.
template <class Editor>
void Drag_To(const Stage& stage, Editor& editor, int distance) {
    bench::Put_Pointer(stage, In_Trough(editor, distance));
    if (!editor.Select(EVENT_DRAG | EVENT_LEFT)) return;
    editor.Value = editor.Read();
    editor.Adjust();
}

template <class Editor, void (*fill)(Editor&), Shown shown, Painting painting = Painting::In_Batch>
Result Drag() {
    Our_Side<Editor> ours(fill, painting);
    bench::Native_Trackbar native(Trackbar_Place);
    native.Move_To(Nearest);
    Drag_To(ours.Window(), ours.Get(), Nearest);
    const auto step = [](int i) { return Nearest + Back_And_Forth(i + 1, Way); };
    return Compare_Steps(
        {ours.Window(), Color_Place, Thumb_Edges,
         [&](int i) { Drag_To(ours.Window(), ours.Get(), step(i)); }},
        {native.Window(), Trackbar_Place, Thumb_Edges, [&](int i) { native.Move_To(step(i)); }}, 2 * Way,
        shown);
}

/// `Init` after nothing but the mode changed, as a press on the mode button has it.
Result Init_Other_Mode() {
    Our_Side<Color_Edit> ours(Fill_Wide);
    Color_Edit& editor = ours.Get();
    const unsigned long* image = editor.Chan_1.Graph_Normal;
    const bench::Summary time = bench::Time({[&] {
        editor.Flag ^= COLOR_EDIT_HLS;
        editor.Init(nullptr);
    }});
    const bool rainbow = (image[0] & 0xFFFFFF) == 0xFF0000;
    Require(image == editor.Chan_1.Graph_Normal && rainbow == ((editor.Flag & COLOR_EDIT_HLS) != 0),
            "the gradients did not change");
    return {time, {}};
}

/// The rainbow is written by every `Init` of a hue editor; the rest of `Init` is in the time.
Result Write_Rainbow() {
    constexpr int Width = 1000;
    constexpr int Height = 30;
    const auto editor = std::make_unique<Hue_Edit>();
    const Stage stage;
    editor->Width = static_cast<short>(Width + 2 * BUT_DIM + SPACE);
    editor->Height = Height;
    editor->Init(stage.Get());
    unsigned long* image = editor->Hue.Graph_Normal;
    Require(editor->Hue.Width == Width && editor->Hue.Height == Height, "the rainbow has another size");
    const bench::Summary time =
        bench::Time({[&] { editor->Init(nullptr); }, 1, [&] { image[Width - 1] = 0; }});
    Require(image == editor->Hue.Graph_Normal && image[Width - 1] != 0, "the rainbow was not written");
    const auto rate = [](double microseconds) { return 4.0 * Width * Height / microseconds; };
    return {{rate(time.median), rate(time.high), rate(time.low)}, {}};
}

using bench::At_Least;
using bench::At_Most;
using bench::No_Target;
using bench::Of_Native;
using bench::Register;

constexpr auto Drag_Hue = Drag<Hue_Edit, Fill_Hue, Shown::Together>;
constexpr auto Drag_RGB = Drag<Color_Edit, Fill_Color<0>, Shown::Together>;
constexpr auto Drag_HLS = Drag<Color_Edit, Fill_Color<COLOR_EDIT_HLS>, Shown::Together>;
constexpr auto Drag_Hue_Held = Drag<Hue_Edit, Fill_Hue, Shown::Together, Painting::Held>;
constexpr auto Drag_RGB_Held = Drag<Color_Edit, Fill_Color<0>, Shown::Together, Painting::Held>;
constexpr auto Drag_Hue_Slowly = Drag<Hue_Edit, Fill_Hue, Shown::One_By_One>;
constexpr auto Drag_RGB_Slowly = Drag<Color_Edit, Fill_Color<0>, Shown::One_By_One>;
constexpr auto Drag_HLS_Slowly = Drag<Color_Edit, Fill_Color<COLOR_EDIT_HLS>, Shown::One_By_One>;

const Register rows[] = {
    Register({"colour editor: drag of red, on display", "us", Of_Native(0.1), Drag_RGB}),
    Register({"colour editor: drag of red, held, on display", "us", Of_Native(0.05), Drag_RGB_Held}),
    Register({"colour editor: drag of hue, on display", "us", Of_Native(0.1), Drag_HLS}),
    Register({"colour editor: drag of red, each on display", "us", No_Target(), Drag_RGB_Slowly}),
    Register({"colour editor: drag of hue, each on display", "us", No_Target(), Drag_HLS_Slowly}),
    Register({"colour editor: Init in the other mode", "us", At_Most(1000), Init_Other_Mode}),
    Register({"hue editor: drag, on display", "us", Of_Native(0.1), Drag_Hue}),
    Register({"hue editor: drag, held, on display", "us", Of_Native(0.05), Drag_Hue_Held}),
    Register({"hue editor: drag, each on display", "us", No_Target(), Drag_Hue_Slowly}),
    Register({"hue editor: rainbow of 1000 x 30 written", "MB/s", At_Least(300), Write_Rainbow}),
};

}  // namespace
