// What handlers are told, and what the host does where there are none.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/controls.h"
#include "tests/support/hosted.h"

namespace galdren_test {
namespace {

constexpr int side = 400;

class Handlers_Test : public testing::Test, protected Hosted_Window {
  protected:
    Handlers_Test() : Hosted_Window(side, side) {}
    using Hosted_Window::Wheel;
    bool Wheel(UINT message, int delta, const Tools& control) {
        return Wheel(message, delta, {control.X + control.Width / 2, control.Y + control.Height / 2});
    }
    void Type(const char* text) {
        for (; *text; ++text)
            Send(WM_CHAR, static_cast<WPARAM>(*text));
    }
};

TEST_F(Handlers_Test, Controls_Work_By_Themselves) {
    for (const bool by_parts : {false, true}) {
        SCOPED_TRACE(by_parts ? "parts" : "pointer");
        host = std::make_unique<Host>(window);
        Buttons lamp, plain;
        Sliders slider;
        Texts field;
        Place(lamp, nullptr, 10, 10, 90, 40, BUTTON_LAMP), Place(plain, nullptr, 110, 10, 90, 40);
        Place(slider, nullptr, 110, 100, 200, 16);
        Place(field, nullptr, 10, 310, 200, 26, TEXT_SINGLE_LINE);
        slider.End_Val = 100;
        host->Add(lamp), host->Add(plain), host->Add(slider), host->Add(field);
        host->Init_All();
        int number = 0;
        for (const Tools* control : std::initializer_list<const Tools*>{&lamp, &plain, &slider, &field}) {
            const POINT middle{control->X + control->Width / 2, control->Y + control->Height / 2};
            if (by_parts) host->Parts().Press({number});
            if (!by_parts) Click(middle);
            EXPECT_EQ(Button_State, 0u);
            ++number;
        }
        EXPECT_TRUE(lamp.Value == 1 && lamp.Lamp == 1);
        EXPECT_EQ(plain.Value, 0) << "what it does is the application's";
        EXPECT_NEAR(slider.Val, 50, 5);
        EXPECT_EQ(field.Mode, TEXT_READING);
        EXPECT_EQ(host->Focused(), &field);
        host->Set_Default(&lamp);
        Type("ab\r");
        EXPECT_EQ(lamp.Lamp, 0) << "pressed once more";
        EXPECT_EQ(field.Mode, TEXT_READING) << "nobody would have it read on";
        host->Set_Default(nullptr);
        Type("\r");
        EXPECT_STREQ(field.Line, "ab");
        EXPECT_EQ(field.Mode & TEXT_ENTERED, TEXT_ENTERED) << "for the application to find";
    }
}

TEST_F(Handlers_Test, One_Is_Told_And_One_Is_Asked) {
    std::string heard;
    bool takes = false;
    Valuators first, second;
    Buttons push, lamp;
    Place(first, nullptr, 10, 10, 200, 24), Place(second, nullptr, 10, 50, 200, 24);
    Place(push, nullptr, 10, 90, 60, 30), Place(lamp, nullptr, 80, 90, 60, 30, BUTTON_LAMP);
    first.End_Val = second.End_Val = 100;
    const auto note = [&](const Host_Event& event, float value) {
        heard += std::string(1, "pdwks"[event.kind]) + std::to_string(event.button);
        heard += std::string(event.second ? "!" : "") + (value > 0 ? "+ " : " ");
        EXPECT_EQ(event.answer, 1);
    };
    host->Add(first, [&](Valuators& bar, const Host_Event& event) { note(event, bar.Val); });
    host->Add(second, [&](Valuators& bar, const Host_Event& event) {
        note(event, bar.Val);
        return takes;
    });
    host->Add(push, [&](Buttons&, const Host_Event& event) { note(event, 0); });
    host->Add(lamp, [&](Buttons&) { heard += "old"; });
    host->Init_All();
    const auto press_all = [&](const Tools& control) {
        const POINT at{control.X + 100, control.Y + 12};
        heard.clear();
        Send(WM_LBUTTONDOWN, MK_LBUTTON, at);
        Send(WM_MOUSEMOVE, MK_LBUTTON, {at.x + 9, at.y});
        Send(WM_LBUTTONUP, 0, at);
        Send(WM_LBUTTONDBLCLK, MK_LBUTTON, at);
        Send(WM_LBUTTONUP, 0, at);
        Send(WM_RBUTTONDOWN, MK_RBUTTON, at);
        // The system makes WM_CONTEXTMENU of this when nobody takes it.
        return Send(WM_RBUTTONUP, 0, at);
    };
    EXPECT_FALSE(press_all(first));
    EXPECT_EQ(heard, "p1+ d1+ p1!+ ") << "with the value stored, and of the left button";
    EXPECT_FALSE(press_all(second));
    EXPECT_EQ(heard, "p1 d1+ p1!+ p3+ ") << "before the value is stored, and of all buttons";
    EXPECT_GT(second.Val, 40);
    takes = true;
    second.Val = 0, second.Adjust();
    EXPECT_TRUE(press_all(second));
    EXPECT_EQ(heard, "p1 d1 p1! p3 ");
    EXPECT_EQ(second.Val, 0) << "the application takes it";
    EXPECT_FALSE(Send(WM_RBUTTONUP, 0, {300, 300})) << "once";
    heard.clear();
    Click({90, 100});
    EXPECT_EQ(heard, "old");
    EXPECT_EQ(lamp.Lamp, 0) << "a handler that takes the control alone stores by itself";
    heard.clear();
    Send(WM_LBUTTONDOWN, MK_LBUTTON, {20, 100});
    Send(WM_MOUSEMOVE, MK_LBUTTON, {21, 100});
    Send(WM_LBUTTONUP, 0, {21, 100});
    EXPECT_EQ(heard, "p1 ") << "a drag tells nothing new of a button";
}

/// How far a notch scrolls, for a scope.
class Wheel_Setting {
  public:
    Wheel_Setting() { SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &before, 0); }
    ~Wheel_Setting() { Set(before); }
    static void Set(UINT lines) { SystemParametersInfoA(SPI_SETWHEELSCROLLLINES, lines, nullptr, 0); }

  private:
    UINT before = 3;
};

TEST_F(Handlers_Test, Rows_Follow_The_Lines_Of_A_Notch) {
    const Wheel_Setting setting;
    Lists list, across;
    Selects selector;
    Place(list, nullptr, 10, 10, 90, 200, FLAG_VERTICAL), Place(selector, nullptr, 110, 10, 200, 30);
    Place(across, nullptr, 110, 50, 280, 60);
    list.Grow(100, 0), across.Grow(100, 0), selector.Grow(100, 0);
    list.Item_Height = 20;
    host->Add(list), host->Add(across), host->Add(selector);
    selector.Item[5]->Name = "next", selector.Current = 4;
    host->Init_All();
    const POINT arrow{selector.Value_Box.X + selector.Value_Box.Width - 3, 25};
    Send(WM_MOUSEMOVE, 0, arrow);
    const Picture before_press(window);
    Click(arrow);
    EXPECT_EQ(selector.Current, 5);
    EXPECT_FALSE(Same(Picture(window), before_press));
    const auto rows_of = [&](const Lists& scrolled, UINT lines, int delta) {
        Wheel_Setting::Set(lines);
        const float before = scrolled.Scroll_Bar.Val;
        Wheel(WM_MOUSEWHEEL, delta, scrolled);
        return (before - scrolled.Scroll_Bar.Val) / scrolled.Scroll_Bar.Step;
    };
    const auto rows_after = [&](UINT lines, int delta) { return rows_of(list, lines, delta); };
    EXPECT_EQ(std::abs(rows_after(5, -120)), 5);
    EXPECT_EQ(std::abs(rows_after(5, -24)), 1) << "a fifth of a notch is a line";
    EXPECT_EQ(rows_after(5, -12), 0);
    EXPECT_EQ(std::abs(rows_after(5, -12)), 1) << "the rest is kept";
    const float page = std::abs(rows_after(WHEEL_PAGESCROLL, -120));
    EXPECT_TRUE(page > 5 && page < 10) << page << " of about 9 rows in view";
    EXPECT_EQ(std::abs(rows_of(across, WHEEL_PAGESCROLL, -120)), 8)
        << "a page of a row is as long as it is wide";
    EXPECT_EQ(rows_after(0, -120), 0) << "the user wants no wheel";
    Wheel_Setting::Set(5);
    Wheel(WM_MOUSEWHEEL, -120, selector);
    EXPECT_TRUE(selector.Current == 6 || selector.Current == 4) << "values go by a step";
}

TEST_F(Handlers_Test, The_Wheel_Moves_What_Lies_Its_Way) {
    Sliders flat, upright;
    Valuators value;
    Lists row, column;
    Texts text, narrow;
    Place(flat, nullptr, 10, 10, 150, 16), Place(upright, nullptr, 180, 10, 16, 150, FLAG_VERTICAL);
    Place(value, nullptr, 210, 130, 90, 40, FLAG_VERTICAL), Place(row, nullptr, 10, 180, 150, 60);
    Place(column, nullptr, 210, 10, 90, 100, FLAG_VERTICAL);
    Place(text, nullptr, 10, 260, 150, 100, TEXT_H_BAR | TEXT_V_BAR);
    Place(narrow, nullptr, 200, 260, 150, 100, TEXT_V_BAR);
    flat.End_Val = upright.End_Val = value.End_Val = 100, flat.Val = upright.Val = value.Val = 50;
    row.Grow(40, 0), column.Grow(40, 0);
    std::string told;
    host->Add(flat, [&](Sliders&, const Host_Event& event) {
        told = std::to_string(event.steps) + (event.kind == Host_Event::Wheel ? " steps" : " of a drag");
    });
    const auto take = [](Valuators& bar) {
        if (Button_State) bar.Val = bar.Read(), bar.Adjust();
    };
    host->Add(value, take, take);
    host->Add(upright), host->Add(row), host->Add(column), host->Add(text);
    host->Add(narrow), host->Init_All();
    for (Texts* field : {&text, &narrow})
        field->Write("%s", (std::string(99, '\n') + std::string(200, 'x')).c_str()), field->Draw();
    row.Bring_Into_View(20), column.Bring_Into_View(20);
    constexpr UINT turned = WM_MOUSEWHEEL, tilted = WM_MOUSEHWHEEL;
    const struct {
        const Tools& control;
        const float& moved;
        UINT wheel;
        int way;  // of a step away from the user or to the right
    } rows[] = {
        {upright, upright.Val, turned, 1},
        {flat, flat.Val, turned, -1},
        {value, value.Val, turned, 1},
        // What follows is shown by moving items up, or to the left.
        {column, column.Scroll_Bar.Val, turned, -1},
        {row, row.Scroll_Bar.Val, tilted, -1},
        {flat, flat.Val, tilted, 1},
        {text, text.H_Slider.Val, tilted, 1},
        // Nothing lies across.
        {upright, upright.Val, tilted, 0},
        {column, column.Scroll_Bar.Val, tilted, 0},
        {narrow, narrow.V_Slider.Val, tilted, 0},
    };
    BUTTON_PRESS(3);  // held, it does not make a drag of the wheel
    for (const auto& [control, moved, wheel, way] : rows) {
        SCOPED_TRACE(testing::Message() << control.X << ", " << control.Y << ' ' << wheel);
        const float before = moved, height = text.V_Slider.Val;
        EXPECT_EQ(Wheel(wheel, 120, control), way != 0);
        EXPECT_EQ((moved > before) - (moved < before), way);
        Wheel(wheel, -120, control);
        EXPECT_EQ(moved, before);
        EXPECT_EQ(text.V_Slider.Val, height);
    }
    Wheel(turned, 120, narrow);
    EXPECT_EQ(narrow.V_Slider.Val, 3 * narrow.V_Slider.Step) << "lines, as the system has them";
    EXPECT_EQ(told, "-1 steps") << "to the left";
    EXPECT_EQ(Button_State, 2u) << "the right button still is";
}

TEST_F(Handlers_Test, A_Field_Reads_On_And_Tells_Of_Lines) {
    Texts field;
    Buttons ok, cancel;
    Place(field, nullptr, 10, 10, 200, 26, TEXT_SINGLE_LINE), Place(ok, nullptr, 10, 50, 60, 30),
        Place(cancel, nullptr, 80, 50, 60, 30);
    std::string log;
    host->Add(field, [&](Texts& told, const Host_Event& event) {
        if (event.kind == Host_Event::Key && event.answer) log += told.Line + std::string(" ");
    });
    host->Add(ok, [&](Buttons&) { log += "ok "; });
    host->Add(cancel, [&](Buttons&) { log += "cancel "; });
    host->Set_Default(&ok);
    host->Focus(&field);
    host->Init_All();
    EXPECT_EQ(host->Focused(), &field) << "as soon as it can have it";
    Type("ab\rc\r");
    EXPECT_EQ(log, "ab ok abc ok ");
    Type("\x1b");
    EXPECT_EQ(field.Mode, 0) << "left by Escape";
    Click({20, 20});
    EXPECT_EQ(field.Mode, TEXT_READING);
    host->Set_Cancel(&cancel);
    Type("\x1b");
    EXPECT_EQ(log, "ab ok abc ok cancel ");
    EXPECT_EQ(field.Mode, TEXT_READING);
}

// Whatever it was that called it.
TEST_F(Handlers_Test, A_Handler_May_End_Everything) {
    const std::function<void()> ways[] = {
        [this] {
            Click({100, 20});
        },
        [this] { EXPECT_TRUE(host->Parts().Press({0})); },
        [this] { EXPECT_TRUE(host->Parts().Step({0}, Part_Move::Right)); },
        [this] { EXPECT_TRUE(host->Parts().Set_Value({0}, "30")); },
        [this] {
            Wheel(WM_MOUSEWHEEL, 120, {100, 20});
        },
        [this] { Send(WM_KEYDOWN, VK_RIGHT); },
    };
    for (const std::string deed : {"remove", "clear", "destroy"}) {
        for (const auto& way : ways) {
            for (const bool is_asked : {false, true}) {
                SCOPED_TRACE(testing::Message() << deed << ", way " << &way - ways << ' ' << is_asked);
                host = std::make_unique<Host>(window);
                Valuators bar;
                Place(bar, nullptr, 10, 10, 200, 24);
                bar.End_Val = 100;
                int calls = 0;
                // What a handler holds must live until it returns, though nobody but the host knows of it.
                const auto held = std::make_shared<std::string>(1000, 'x');
                const auto asked = [&, held](Valuators& control, const Host_Event&) {
                    ++calls;
                    if (deed == "remove") host->Remove(control);
                    if (deed == "clear") host->Clear();
                    if (deed == "destroy") host.reset();
                    EXPECT_EQ(held->size(), 1000u);
                    return false;
                };
                const auto told = [asked](Valuators& control, const Host_Event& event) {
                    asked(control, event);
                };
                is_asked ? host->Add(bar, asked) : host->Add(bar, told);
                host->Init_All();
                host->Focus(&bar);
                way();
                STATE_MASK(0);
                EXPECT_EQ(held.use_count(), 3) << "the handler goes with the control";
                if (host) Send(WM_MOUSEMOVE, 0, {100, 20}), Send(WM_CHAR, ' ');
                EXPECT_EQ(calls, 1) << "it hears no more";
                host.reset();
            }
        }
    }
}

TEST_F(Handlers_Test, Parts_Are_Worked_By_Their_Names) {
    Labels label;
    Texts title;
    Valuators level;
    Buttons hidden, apply;
    Place(label, "Title", 10, 350, 100, 24), Place(title, nullptr, 120, 350, 200, 24, TEXT_SINGLE_LINE);
    Place(level, "dB", 10, 150, 200, 24), level.End_Val = 100;
    Place(hidden, "Apply", 10, 100, 100, 24), Place(apply, "Apply", 10, 50, 100, 24);
    std::vector<int> told;
    host->Add(label), host->Add(title), host->Add(hidden);
    host->Add(level, [&](Valuators&, const Host_Event& event) { told = {event.kind, event.key}; });
    host->Add(apply, [&](Buttons&) { told = {}; });
    host->Describe(level, "Volume");
    host->Set_Shown(hidden, false);
    host->Init_All();
    host->Focus(&title);
    Part_Window& parts = host->Parts();
    EXPECT_TRUE(Write_Part(parts, "Title", "Harbour"));
    EXPECT_EQ(Read_Part(parts, "Title"), "Harbour") << "the field, not its label";
    EXPECT_TRUE(Write_Part(parts, "Volume", "40"));
    EXPECT_FALSE(Write_Part(parts, "Volume", "loud"));
    EXPECT_EQ(level.Val, 40);
    EXPECT_EQ(told, (std::vector<int>{Host_Event::Set, 0}));
    EXPECT_TRUE(Press_Part(parts, "Apply"));
    EXPECT_TRUE(told.empty()) << "the one that is shown was pressed";
    for (const char* name : {"dB", "apply", ""})
        EXPECT_FALSE(Press_Part(parts, name) || Write_Part(parts, name, "1") || Read_Part(parts, name))
            << name;
    // The handler hears of the key that a step stands for.
    constexpr int keys[] = {VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT, VK_HOME, VK_END};
    for (int move = 0; move < 8; ++move) {
        EXPECT_TRUE(parts.Step({3}, static_cast<Part_Move>(move)));
        EXPECT_EQ(told, (std::vector<int>{Host_Event::Key, KEY_NAVIGATION | keys[move]}));
    }
}

}  // namespace
}  // namespace galdren_test
