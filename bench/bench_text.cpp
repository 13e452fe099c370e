// Text fields beside the native edit control: a line more in a full console, scrolling, typing.

#include <functional>
#include <string>

#include "footprint.h"
#include "scene.h"

namespace {

using bench::Compare;
using bench::Compare_Steps;
using bench::Native_Side;
using bench::Our_Side;
using bench::Require_Each_Shows;
using bench::Result;
using bench::Shown;

constexpr RECT Console_Place{40, 40, 660, 440};
/// The place of the lines, without the scroll bars.
constexpr RECT Lines_Place{80, 60, 630, 420};
constexpr RECT Entry_Place{40, 40, 340, 64};
/// At least this many pixels change when the lines move, or another letter is shown.
constexpr int Lines_Pixels = 100;
constexpr int Letter_Pixels = 5;

constexpr int Full = Texts::Most_Lines;
constexpr int Few = 40;

/// Lines of one length, so that only their number can make a field grow.
std::string Line_Of(int number) {
    return std::to_string(10'000'000 + number) + " the quick brown fox jumps over the lazy dog";
}

void Fill_Console(Texts& console, unsigned long bars) {
    bench::Place(console, Console_Place);
    console.Flag = bars;
}

/// Our console with `count` lines.
class Our_Console : public Our_Side<Texts> {
  public:
    explicit Our_Console(int count, unsigned long bars = TEXT_V_BAR)
        : Our_Side([bars](Texts& console) { Fill_Console(console, bars); }) {
        for (int i = 0; i < count; ++i)
            Append(i);
    }
    void Append(int number) { Get().Write("%s", Line_Of(number).c_str()); }
    /// Forgets all lines but the first ones.
    void Reset(int count) {
        Get().Cleanup();
        for (int i = 0; i < count; ++i)
            Append(i);
    }
};

class Native_Console : public Native_Side {
  public:
    explicit Native_Console(int count)
        : Native_Side("EDIT", "", WS_VISIBLE | WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL,
                      Console_Place) {
        for (int i = 0; i < count; ++i)
            text += Line_Of(i) + "\r\n";
        Get().Send(EM_SETLIMITTEXT, 64 << 20);
        Reset();
    }
    void Reset() const {
        Get().Send(WM_SETREDRAW, FALSE);
        Get().Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
        Get().Send(EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
        Get().Send(EM_SCROLLCARET);
        Get().Send(WM_SETREDRAW, TRUE);
        Window().Repaint();
    }
    void Append(int number) const {
        const std::string line = Line_Of(number) + "\r\n";
        Get().Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(line.c_str()));
        UpdateWindow(Get().Get());
    }
    void Scroll(int lines) const {
        Get().Send(EM_LINESCROLL, 0, lines);
        UpdateWindow(Get().Get());
    }

  private:
    std::string text;
};

constexpr int Steps_Of_A_Run = 20;

template <class Side>
std::function<void()> Run(Side& side, Shown shown = Shown::Together) {
    return [&side, shown] {
        for (int i = 0; i < Steps_Of_A_Run; ++i) {
            side.Append(i);
            if (shown == Shown::One_By_One || i + 1 == Steps_Of_A_Run) bench::Flush();
        }
    };
}

/// Both begin every run with the same lines, so that the native text does not grow over the runs.
template <Shown shown>
Result Append() {
    Our_Console ours(Full);
    Native_Console native(Full);
    Require_Each_Shows({ours.Window(), Lines_Place, Lines_Pixels, [&](int step) { ours.Append(step); }}, 3);
    Require_Each_Shows({native.Window(), Lines_Place, Lines_Pixels, [&](int step) { native.Append(step); }},
                       3);
    const auto reset_native = [&] {
        native.Reset();
        native.Window().Raise();
    };
    return Compare({Run(ours, shown), Steps_Of_A_Run, [&] { ours.Window().Raise(); }},
                   {Run(native, shown), Steps_Of_A_Run, reset_native});
}

Result Append_Few_And_Many() {
    Our_Console few(Few);
    Our_Console many(Full);
    const auto reset_few = [&] {
        few.Reset(Few);
        few.Window().Raise();
    };
    return Compare({Run(few), Steps_Of_A_Run, reset_few},
                   {Run(many), Steps_Of_A_Run, [&] { many.Window().Raise(); }});
}

/// What the field holds more after 100,000 lines than after the first 4096.
Result Growth() {
    constexpr int Total = 100'000;
    Our_Console ours(Full + 100, TEXT_V_BAR | TEXT_H_BAR);
    const double before = bench::Heap_Bytes();
    for (int i = Full; i < Total; ++i)
        ours.Append(i);
    const double grown = bench::Heap_Bytes() - before;
    return {{grown, grown, grown}, {}};
}

/// By one line, up and down again.
template <Shown shown>
Result Scroll() {
    constexpr int Way = 50;
    Our_Console ours(Full);
    Native_Console native(Full);
    const auto direction = [](int step) { return step % (2 * Way) < Way ? -1 : 1; };
    return Compare_Steps(
        {ours.Window(), Lines_Place, Lines_Pixels, [&](int step) { ours.Get().Scroll(direction(step)); }},
        {native.Window(), Lines_Place, Lines_Pixels, [&](int step) { native.Scroll(direction(step)); }},
        2 * Way, shown);
}

/// While it lives, texts are in another code page.
class Other_Page {
  public:
    explicit Other_Page(unsigned page) : before(Text_Code_Page()) { Set_Text_Code_Page(page); }
    ~Other_Page() { Set_Text_Code_Page(before); }
    Other_Page(const Other_Page&) = delete;
    Other_Page& operator=(const Other_Page&) = delete;

  private:
    unsigned before;
};

/// Letters, and Backspace to take them away again.
/// @param flag  further style bits of ours
template <Shown shown, unsigned page = 0, unsigned long flag = 0>
Result Type() {
    const Other_Page texts(page);
    constexpr int Letters = 20;
    constexpr int Backspace = 8;
    Our_Side<Texts> ours([](Texts& entry) {
        bench::Place(entry, Entry_Place);
        entry.Flag = TEXT_SINGLE_LINE | flag;
        entry.Mode = TEXT_READING;
    });
    Native_Side native("EDIT", "", WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, Entry_Place);
    SetFocus(native.Get().Get());
    const auto key = [](int step) { return step % (2 * Letters) < Letters ? 'a' + step % 26 : Backspace; };
    return Compare_Steps(
        {ours.Window(), Entry_Place, Letter_Pixels, [&](int step) { ours.Get().Input(key(step)); }},
        {native.Window(), Entry_Place, Letter_Pixels,
         [&](int step) { native.Get().Send(WM_CHAR, static_cast<WPARAM>(key(step)), 1); }},
        2 * Letters, shown);
}

const bench::Register rows[] = {
    bench::Register({"text: append a line to 4096, 620 x 400, repaint", "us", bench::Of_Native(0.05),
                     Append<Shown::Together>}),
    bench::Register(
        {"text: append a line, each on display", "us", bench::No_Target(), Append<Shown::One_By_One>}),
    bench::Register(
        {"text: append to 40, beside our 4096", "us", bench::Of_Native(1.15), Append_Few_And_Many}),
    bench::Register({"text: growth by lines 4097 to 100,000", "bytes", bench::At_Most(0), Growth}),
    bench::Register(
        {"text: scroll by one line, repaint", "us", bench::Of_Native(0.06), Scroll<Shown::Together>}),
    bench::Register(
        {"text: scroll by one line, each on display", "us", bench::No_Target(), Scroll<Shown::One_By_One>}),
    bench::Register({"text: a character typed, echo", "us", bench::Of_Native(0.1), Type<Shown::Together>}),
    bench::Register(
        {"text: a character typed, each on display", "us", bench::No_Target(), Type<Shown::One_By_One>}),
    bench::Register(
        {"text: the same in code page 932", "us", bench::Of_Native(0.1), Type<Shown::Together, 932>}),
    bench::Register({"text: the same in UTF-8", "us", bench::Of_Native(0.1), Type<Shown::Together, 65001>}),
    bench::Register({"text: the same in UTF-8, with editing", "us", bench::Of_Native(0.1),
                     Type<Shown::Together, 65001, TEXT_EDITING>}),
};

}  // namespace
