// What handlers are told, and what the host does where there are none.
#include <iterator>
#include <string>

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
    /// The middle of a part of a control that was added as the `number`th.
    POINT Middle_Of(Part_Place place) {
        const Part_Owner owner = host->Parts().Owner(place.control);
        const RECT area = owner.parts->Describe(*owner.control, place.part).area;
        return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
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
        for (int number = 0; number < 4; ++number) {
            if (by_parts) {
                EXPECT_TRUE(host->Parts().Press({number})) << number;
            } else {
                Click(Middle_Of({number}));
            }
            EXPECT_EQ(Button_State, 0u);
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
    std::string told, asked;
    bool takes = false;
    Valuators first, second;
    Buttons push;
    Place(first, nullptr, 10, 10, 200, 24), Place(second, nullptr, 10, 50, 200, 24),
        Place(push, nullptr, 10, 90, 60, 30);
    first.End_Val = second.End_Val = 100;
    const auto note = [](std::string& log, const Host_Event& event, float value) {
        static constexpr char kinds[] = "pdwks";
        log += kinds[event.kind];
        log += std::to_string(event.button) + (event.second ? "!" : "") + (value > 0 ? "+ " : " ");
        EXPECT_EQ(event.answer, 1);
    };
    host->Add(first, [&](Valuators& bar, const Host_Event& event) { note(told, event, bar.Val); });
    host->Add(second, [&](Valuators& bar, const Host_Event& event) {
        note(asked, event, bar.Val);
        return takes;
    });
    host->Add(push, [&](Buttons&, const Host_Event& event) { note(told, event, 0); });
    host->Init_All();
    const auto press_all = [&](const Tools& control) {
        const POINT at{control.X + 100, control.Y + 12};
        told.clear(), asked.clear();
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
    EXPECT_EQ(told, "p1+ d1+ p1!+ ") << "with the value stored, and of the left button";
    EXPECT_FALSE(press_all(second));
    EXPECT_EQ(asked, "p1 d1+ p1!+ p3+ ") << "before the value is stored, and of all buttons";
    EXPECT_GT(second.Val, 40);
    takes = true;
    second.Val = 0, second.Adjust();
    EXPECT_TRUE(press_all(second));
    EXPECT_EQ(asked, "p1 d1 p1! p3 ");
    EXPECT_EQ(second.Val, 0) << "the application takes it";
    EXPECT_EQ(Send(WM_RBUTTONUP, 0, {300, 300}), false) << "once";
    Buttons lamp;
    Place(lamp, nullptr, 80, 90, 60, 30, BUTTON_LAMP);
    host->Add(lamp, [&](Buttons&) { told = "old"; });
    lamp.Init(window);
    Click({90, 100});
    EXPECT_EQ(told, "old");
    EXPECT_EQ(lamp.Lamp, 0) << "a handler that takes the control alone stores by itself";
    // A drag tells nothing new of a button.
    told.clear();
    Send(WM_LBUTTONDOWN, MK_LBUTTON, {20, 100});
    Send(WM_MOUSEMOVE, MK_LBUTTON, {21, 100});
    Send(WM_LBUTTONUP, 0, {21, 100});
    EXPECT_EQ(told, "p1 ");
}

TEST_F(Handlers_Test, A_Button_Held_Does_Not_Make_A_Drag_Of_The_Wheel) {
    Valuators event_bar, plain_bar;
    Place(event_bar, nullptr, 10, 10, 200, 24), Place(plain_bar, nullptr, 10, 50, 200, 24);
    event_bar.End_Val = plain_bar.End_Val = 1000;
    event_bar.Val = plain_bar.Val = 100;
    event_bar.Step = plain_bar.Step = 1;
    int kind = -1;
    host->Add(event_bar, [&](Valuators&, const Host_Event& event) { kind = event.kind; });
    const auto take = [](Valuators& bar) {
        if (Button_State) bar.Val = bar.Read(), bar.Adjust();
    };
    host->Add(plain_bar, take, take);
    host->Init_All();
    BUTTON_PRESS(3);
    Wheel(WM_MOUSEWHEEL, 120, event_bar);
    Wheel(WM_MOUSEWHEEL, 120, plain_bar);
    EXPECT_EQ(kind, Host_Event::Wheel);
    EXPECT_EQ(event_bar.Val, 99);
    EXPECT_EQ(plain_bar.Val, 99);
    EXPECT_EQ(Button_State, 2u) << "the right button still is";
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
    Lists list;
    Selects selector;
    Place(list, nullptr, 10, 10, 90, 200, FLAG_VERTICAL), Place(selector, nullptr, 110, 10, 200, 30);
    list.Grow(100, 0), selector.Grow(100, 0);
    list.Item_Height = 20;
    host->Add(list), host->Add(selector);
    host->Init_All();
    const float top = list.Scroll_Bar.Val, step = list.Scroll_Bar.Step;
    const auto rows_after = [&](UINT lines, int delta) {
        Wheel_Setting::Set(lines);
        const float before = list.Scroll_Bar.Val;
        Wheel(WM_MOUSEWHEEL, delta, list);
        return (before - list.Scroll_Bar.Val) / step;
    };
    EXPECT_EQ(std::abs(rows_after(5, -120)), 5);
    EXPECT_EQ(std::abs(rows_after(5, -24)), 1) << "a fifth of a notch is a line";
    EXPECT_EQ(rows_after(5, -12), 0);
    EXPECT_EQ(std::abs(rows_after(5, -12)), 1) << "the rest is kept";
    const float page = std::abs(rows_after(WHEEL_PAGESCROLL, -120));
    EXPECT_TRUE(page > 5 && page < 10) << page << " of about 9 rows in view";
    EXPECT_EQ(rows_after(0, -120), 0) << "the user wants no wheel";
    EXPECT_NE(list.Scroll_Bar.Val, top);
    Wheel_Setting::Set(5);
    Wheel(WM_MOUSEWHEEL, -120, selector);
    EXPECT_TRUE(selector.Current == 1 || selector.Current == 99) << "values go by a step";
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
    int told = 0;
    host->Add(flat, [&](Sliders&, const Host_Event& event) { told = event.steps; });
    host->Add(upright), host->Add(value), host->Add(row), host->Add(column), host->Add(text);
    host->Add(narrow), host->Init_All();
    for (Texts* field : {&text, &narrow})
        field->Write("%s", std::string(200, 'x').c_str()), field->Draw();
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
    for (const auto& [control, moved, wheel, way] : rows) {
        SCOPED_TRACE(testing::Message() << control.X << ", " << control.Y << ' ' << wheel);
        const float before = moved, height = text.V_Slider.Val;
        EXPECT_EQ(Wheel(wheel, 120, control), way != 0);
        EXPECT_EQ((moved > before) - (moved < before), way);
        Wheel(wheel, -120, control);
        EXPECT_EQ(moved, before);
        EXPECT_EQ(text.V_Slider.Val, height);
    }
    EXPECT_EQ(told, -1) << "to the left";
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

/// What a handler does to the controls and the host.
TEST_F(Handlers_Test, A_Handler_May_End_Everything) {
    const char* const deeds[] = {"remove", "hide", "disable", "clear", "destroy"};
    for (int deed = 0; deed < 5; ++deed) {
        for (const bool is_asked : {false, true}) {
            for (int way = 0; way < 6; ++way) {
                SCOPED_TRACE(testing::Message() << deeds[deed] << ' ' << is_asked << " way " << way);
                host = std::make_unique<Host>(window);
                // Valid as long as the handler runs, and written to by nobody afterwards.
                auto bar = std::make_unique<Valuators>();
                Place(*bar, nullptr, 10, 10, 200, 24);
                bar->End_Val = 100;
                int calls = 0;
                // What a handler holds must live until it returns, though nobody but the host knows of it.
                const auto held = std::make_shared<std::string>(1000, 'x');
                const auto act = [&](Valuators& control) {
                    ++calls;
                    if (deed == 0) host->Remove(control);
                    if (deed == 1) host->Set_Shown(control, false);
                    if (deed == 2) host->Set_Enabled(control, false);
                    if (deed == 3) host->Clear();
                    if (deed == 4) host.reset();
                };
                if (is_asked) {
                    host->Add(*bar, [&, held](Valuators& control, const Host_Event&) {
                        act(control);
                        EXPECT_EQ(held->size(), 1000u);
                        return false;
                    });
                } else {
                    host->Add(*bar, [&](Valuators& control, const Host_Event&) { act(control); });
                }
                host->Init_All();
                host->Focus(bar.get());
                const std::function<void()> ways[] = {
                    [&] {
                        Click({100, 20});
                    },
                    [&] { EXPECT_TRUE(host->Parts().Press({0})); },
                    [&] { EXPECT_TRUE(host->Parts().Step({0}, Part_Move::Right)); },
                    [&] { EXPECT_TRUE(host->Parts().Set_Value({0}, "30")); },
                    [&] { Wheel(WM_MOUSEWHEEL, 120, *bar); },
                    [&] { Send(WM_KEYDOWN, VK_RIGHT, {}); }};
                ways[way]();
                EXPECT_EQ(calls, 1);
                if (!host || deed == 0 || deed == 3) {
                    EXPECT_EQ(held.use_count(), 1) << "the handler goes with the control";
                }
                STATE_MASK(0);
                if (!host) continue;
                if (deed == 0 || deed == 3) bar.reset();
                Send(WM_MOUSEMOVE, 0, {100, 20});
                Send(WM_CHAR, ' ', {});
                EXPECT_EQ(host->Current(), nullptr);
                EXPECT_EQ(calls, 1) << "it hears no more";
                host.reset();
            }
        }
    }
}

TEST_F(Handlers_Test, Parts_Are_Worked_By_Their_Names) {
    static const char* const extras[] = {"Grid", "Axes", nullptr};
    Labels label;
    Texts title;
    CheckLists checks;
    Valuators level;
    Buttons hidden, apply;
    Place(label, "Title", 10, 350, 100, 24);
    Place(title, nullptr, 120, 350, 200, 24, TEXT_SINGLE_LINE);
    Place(checks, "Extras", 10, 200, 200, 80), checks.List = extras;
    Place(level, "dB", 10, 150, 200, 24), level.End_Val = 100;
    Place(hidden, "Apply", 10, 100, 100, 24);
    Place(apply, "Apply", 10, 50, 100, 24);
    int pressed = 0;
    std::string told;
    host->Add(label), host->Add(title), host->Add(checks);
    host->Add(level, [&](Valuators& bar, const Host_Event& event) {
        told += std::to_string(event.kind == Host_Event::Set) + std::to_string(static_cast<int>(bar.Val));
    });
    host->Add(hidden), host->Add(apply, [&](Buttons&) { ++pressed; });
    host->Describe(level, "Volume");
    host->Set_Shown(hidden, false);
    host->Init_All();
    host->Focus(&title);
    Part_Window& parts = host->Parts();

    EXPECT_TRUE(Press_Part(parts, "Apply"));
    EXPECT_EQ(pressed, 1) << "the one that is shown";
    EXPECT_TRUE(Write_Part(parts, "Title", "Harbour"));
    EXPECT_EQ(Read_Part(parts, "Title"), "Harbour") << "the field, not its label";
    EXPECT_TRUE(Press_Part(parts, "Axes"));
    EXPECT_EQ(Read_Part(parts, "Axes"), "1");
    EXPECT_EQ(Read_Part(parts, "Grid"), "0");
    EXPECT_TRUE(Write_Part(parts, "Volume", "40"));
    EXPECT_FALSE(Write_Part(parts, "Volume", "loud"));
    EXPECT_EQ(told, "140");
    for (const char* name : {"dB", "apply", ""}) {
        EXPECT_FALSE(Press_Part(parts, name)) << name;
        EXPECT_FALSE(Write_Part(parts, name, "1")) << name;
        EXPECT_FALSE(Read_Part(parts, name)) << name;
    }
}

}  // namespace
}  // namespace galdren_test
