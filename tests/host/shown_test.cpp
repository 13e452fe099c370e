// Controls that are hidden, disabled or on a page that is not in front, and what services hear.
#include <functional>
#include <memory>
#include <string>

#include "tests/support/controls.h"
#include "tests/support/hosted.h"

namespace galdren_test {
namespace {

constexpr int width = 320;
constexpr int height = 200;

class Shown_Test : public testing::Test, protected Hosted_Window {
  protected:
    Shown_Test() : Hosted_Window(width, height) {
        Place(list, nullptr, 10, 10, 100, 120, FLAG_VERTICAL);
        Place(value, nullptr, 120, 10, 180, 24);
        Place(button, nullptr, 120, 50, 80, 30);
        Place(tabs, nullptr, 10, 160, 300, 30);
        value.End_Val = 100;
        button.Name = "Press", list.Border = value.Border = button.Border = tabs.Border = 1;
        list.Grow(8, 0);
        tabs.Grow(3, 0);
        host->Set_Background(Colors(60, 120, 180));
        host->Add(list), host->Add(value), host->Add(tabs);
        host->Add(button, [this](Buttons&) { ++presses; });
        host->Init_All();
        Painted();
    }

    int presses = 0;
    Lists list;
    Valuators value;
    Buttons button;
    Tabs tabs;
    Tools* const some[3] = {&list, &value, &button};
};

TEST_F(Shown_Test, What_Is_Hidden_Paints_And_Hears_Nothing) {
    for (const bool holds : {false, true}) {
        SCOPED_TRACE(holds);
        if (holds) host->Hold();
        const Picture shown = All_Painted();
        Send(WM_MOUSEMOVE, 0, {140, 60});
        for (Tools* control : some)
            host->Set_Shown(*control, false);
        EXPECT_EQ(host->Current(), nullptr);
        const Picture hidden = Painted();
        EXPECT_EQ(hidden.At(30, 30), 0x3C78B4u);
        EXPECT_EQ(hidden.At(130, 60), 0x3C78B4u);
        // New items take the veil when the list is initialised.
        list.Current = holds ? 2 : 1, list.Grow(holds ? 14 : 12, 0), list.Init(nullptr), list.Adjust();
        list.Item[1]->Draw(), list.Scroll_Bar.Draw(), list.Draw();
        value.Val = 40, value.Adjust(), button.Value = 1, button.Adjust();
        EXPECT_TRUE(Same(Picture(window), hidden)) << "members";
        host->Init_All();
        list.Draw(), value.Draw();
        EXPECT_TRUE(Same(Painted(), hidden)) << "initialised anew";
        Click({140, 60});
        EXPECT_EQ(presses, 0);
        EXPECT_FALSE(host->Parts().Press({3})) << "nor is it pressed by who cannot see it";
        EXPECT_EQ(host->Parts().Control_At({140, 60}), -1);
        EXPECT_TRUE(list.Flag == FLAG_VERTICAL && list.Width == 100);
        for (Tools* control : some)
            host->Set_Shown(*control, true);
        value.Val = 0, button.Value = 0, list.Current = 0, list.Grow(8, 0), host->Init_All();
        EXPECT_TRUE(Same(Painted(), shown));
    }
}

TEST_F(Shown_Test, What_Is_Disabled_Is_Half_Of_Itself) {
    for (const bool holds : {false, true}) {
        SCOPED_TRACE(holds);
        if (holds) host->Hold();
        value.Val = 60, value.Init(nullptr);
        const Picture enabled = All_Painted();
        Send(WM_MOUSEMOVE, 0, {140, 60});
        for (Tools* control : some)
            host->Set_Enabled(*control, false);
        EXPECT_EQ(host->Current(), nullptr) << "who was disabled has lost the pointer";
        EXPECT_TRUE(host->Is_Enabled(tabs) && !host->Is_Enabled(button) && !host->Is_Enabled(Buttons()));
        const Picture disabled = Painted();
        // Half of the ground, and half of what a passive control shows there.
        EXPECT_EQ(disabled.At(125, 22), 0x7391AFu);
        EXPECT_EQ(disabled.At(140, 57), 0x7492B0u);
        EXPECT_TRUE(list.Flag == FLAG_VERTICAL && button.Flag == 0) << "passive only while it is painted";
        EXPECT_TRUE(Same(All_Painted(), disabled)) << "never blended with itself";
        Begin_Draw(window, nullptr);
        POINT corner{}, same{};
        LPtoDP(Z_DC, &corner, 1);
        All_Painted();
        LPtoDP(Z_DC, &same, 1);
        End_Draw();
        EXPECT_EQ(same.y, corner.y) << "the pair of an application keeps its coordinates";

        // A value that changes is painted with the next WM_PAINT, and blended too.
        value.Val = 10, value.Adjust();
        EXPECT_TRUE(Same(Picture(window), disabled)) << "not at once";
        const Picture changed = Painted();
        EXPECT_FALSE(Same(changed, disabled));
        EXPECT_TRUE(Same(All_Painted(), changed));

        Click({140, 60});
        EXPECT_EQ(presses, 0);
        EXPECT_EQ(host->Current(), nullptr);
        EXPECT_FALSE(host->Parts().Press({3}) || host->Parts().Step({1}, Part_Move::Right) ||
                     host->Parts().Set_Value({1}, "5") || host->Parts().Set_Focus({3}));
        value.Val = 60;
        for (Tools* control : some)
            host->Set_Enabled(*control, true);
        value.Init(nullptr);
        EXPECT_TRUE(Same(Painted(), enabled));
    }
}

TEST_F(Shown_Test, What_Is_Disabled_Is_Painted_As_Passive) {
    struct Flag_Reader : Tools {
        void Init(HWND target) { Prepare(target); }
        void Draw() { painted_with = Flag; }
        unsigned long painted_with = 0;
    } reader;
    Place(reader, nullptr, 280, 60, 10, 10);
    host->Add(reader), host->Init_All();
    host->Set_Enabled(reader, false);
    Painted();
    EXPECT_TRUE(reader.painted_with == FLAG_PASSIVE && reader.Flag == 0);
    host->Remove(reader);
}

TEST_F(Shown_Test, Pages_Follow_Their_Tabs) {
    Tabs inner;
    Buttons deep;
    Place(inner, nullptr, 120, 100, 180, 24), Place(deep, nullptr, 220, 50, 60, 30);
    inner.Grow(2, 0);
    host->Add(inner), host->Add(deep);
    host->Init_All();
    host->Set_Page(tabs, 0, list, value);
    host->Set_Page(tabs, 1, button, inner);
    host->Set_Page(inner, 1, deep);
    host->Set_Page(tabs, 0, tabs), host->Set_Page(inner, 0, tabs);  // a circle: ignored
    const auto shown = [&] {
        std::string names;
        const std::pair<const Tools*, char> all[] = {{&list, 'l'}, {&value, 'v'}, {&button, 'b'},
                                                     {&tabs, 't'}, {&inner, 'i'}, {&deep, 'd'}};
        for (const auto& [control, name] : all)
            if (host->Is_Shown(*control)) names += name;
        return names;
    };
    EXPECT_EQ(shown(), "lvt");
    Click({160, 170});  // the tab in the middle
    EXPECT_EQ(tabs.Value, 1);
    EXPECT_EQ(shown(), "bti") << "with the press, not with a later message";
    inner.Value = 1, inner.Adjust();
    Send(WM_TIMER);
    EXPECT_EQ(shown(), "btid");
    tabs.Value = 0, host->Refresh(tabs);
    const Picture first = Painted();
    EXPECT_EQ(shown(), "lvt") << "and all on the pages of inner tabs";
    EXPECT_TRUE(Same(All_Painted(), first));
    tabs.Value = 1, host->Set_Shown(button, false);
    Painted();
    EXPECT_EQ(shown(), "tid");
    host->Set_Shown(tabs, false);
    EXPECT_EQ(shown(), "");
    host->Remove(tabs);
    EXPECT_EQ(shown(), "lvid") << "on no page any more";
}

/// Writes down what it hears: a letter for the change, the control and its part.
class Listener : public Host_Service {
  public:
    explicit Listener(std::string& shared_log) : log(shared_log) {}
    bool Message(UINT message, WPARAM, LPARAM, LRESULT& result) override {
        result = 7;
        return message == WM_USER;
    }
    void Changed(Part_Change change, Part_Place place) override {
        log += "fvscSH"[static_cast<int>(change)];
        log += std::to_string(place.control) + "/" + std::to_string(place.part) + " ";
    }

  private:
    std::string& log;
};

TEST_F(Shown_Test, Services_Hear_Of_Changes) {
    std::string log;
    host->Serve(std::make_unique<Listener>(log));
    EXPECT_TRUE(Send(WM_USER));
    EXPECT_EQ(result, 7);
    const auto click = [this](POINT at) { return [this, at] { Click(at); }; };
    const std::pair<std::function<void()>, const char*> rows[] = {
        {click({160, 20}), "f1/-1 v1/-1 "},
        {click({160, 170}), "c2/1 f2/1 "},
        {click({140, 60}), "f3/-1 s3/-1 "},
        {[&] { host->Parts().Set_Focus({1}); }, "f1/-1 "},
        {[&] { Send(WM_KEYDOWN, VK_RIGHT); }, "v1/-1 "},
        {[&] { host->Tell_Changed(list); }, "c0/0 "},
        {[&] { host->Set_Shown(button, false), host->Set_Shown(button, true); }, "H3/-1 S3/-1 "},
        {[&] { host->Set_Enabled(button, false); }, "s3/-1 "},
        // Where the keyboard is while its control cannot have it: nowhere, and there again afterwards.
        {[&] { host->Set_Enabled(value, false); }, "f-1/-1 s1/-1 "},
        {[&] { host->Set_Enabled(value, true); }, "f1/-1 s1/-1 "},
        {[&] { host->Set_Shown(value, false), host->Set_Shown(value, true); }, "H1/-1 f-1/-1 S1/-1 f1/-1 "},
        {[&] { host->Remove(value); }, "f-1/-1 "},
        {[&] { host->Focus(&list); }, "f0/0 "},
        {[&] { host->Focus(nullptr); }, "f-1/-1 "}};
    for (const auto& [act, heard] : rows) {
        log.clear();
        act();
        EXPECT_EQ(log, heard);
    }
}

TEST_F(Shown_Test, Parts_Are_Pressed_Beside_The_Pointer) {
    Part_Window& parts = host->Parts();
    const unsigned serial = parts.Owner(3).serial;
    host->Remove(button), host->Add(button);
    EXPECT_EQ(parts.Number_Of(serial), -1) << "a control that is added again is another one";
    EXPECT_FALSE(parts.Press({9}) || parts.Press({-1}) || parts.Step({9}, Part_Move::Up));

    // The pointer is over the tabs, and stays there for everybody to see.
    Send(WM_MOUSEMOVE, 0, {60, 170});
    const Picture lit(window);
    const POINT pointer{ZCursor_X, ZCursor_Y};
    EXPECT_TRUE(parts.Press({1})) << "which sets the middle";
    EXPECT_GT(value.Val, 30);
    value.Val = 0, value.Adjust();
    EXPECT_TRUE(ZCursor_X == pointer.x && ZCursor_Y == pointer.y);
    EXPECT_EQ(host->Current(), &tabs);
    EXPECT_TRUE(Same(Picture(window), lit));
    window.Close();
    Send(WM_NCDESTROY);
    EXPECT_EQ(parts.Window(), nullptr);
}

// What the ring covered is painted before the key is done, not by a WM_PAINT.
TEST_F(Shown_Test, Tab_Leaves_Nothing_Of_The_Ring_Behind) {
    Send(WM_SETFOCUS);
    for (const bool holds : {false, true}) {
        if (holds) host->Hold();
        All_Painted();
        for (int i = 0; i < 5; ++i) {
            EXPECT_TRUE(Send(WM_KEYDOWN, VK_TAB));
            EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE));
            const Picture at_once(window);
            EXPECT_TRUE(Same(All_Painted(), at_once)) << i << holds;
        }
    }
}

TEST_F(Shown_Test, Nothing_Is_Left_Of_A_Host_That_Is_Gone) {
    Send(WM_MOUSEMOVE, 0, {60, 170});
    EXPECT_EQ(host->Current(), &tabs);
    host->Clear();
    Send(WM_MOUSEMOVE, 0, {60, 171});
    EXPECT_EQ(host->Current(), nullptr);
    EXPECT_EQ(host->Parts().Control_At({60, 170}), -1);
    host->Add(button);
    host->Set_Shown(button, false);
    host.reset();
    EXPECT_EQ(button.Veil, VEIL_HIDDEN);
    host = std::make_unique<Host>(window);
    host->Add(button);
    EXPECT_EQ(button.Veil, VEIL_NONE);
}

}  // namespace
}  // namespace galdren_test
