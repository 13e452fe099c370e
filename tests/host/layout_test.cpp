// Layouts: where controls are at every size of the window, what is painted on the way, and the least size.
#include <array>
#include <functional>
#include <vector>

#include "tests/support/controls.h"
#include "tests/support/hosted.h"

namespace galdren_test {
namespace {

using namespace Layout;

/// A window with a ground, of which the host alone decides what is painted.
class Laid_Out : public Hosted_Window {
  public:
    Laid_Out(int width, int height) : Hosted_Window(width, height) {
        Connect();
        host->Set_Background(Colors(60, 120, 180));
    }
    void Resize(int width, int height) {
        window.Resize(width, height);
        UpdateWindow(window);
    }
    Picture Shown() {
        UpdateWindow(window);
        return Picture(window);
    }
};

struct Controls {
    Controls() {
        for (Tools* const control : All())
            Place(*control, nullptr, 0, 0, 0, 0);
        title.Name = "Title", ok.Name = "OK", cancel.Name = "Cancel";
        title.Flag = FLAG_TEXT_LEFT, list.Flag = FLAG_VERTICAL;
        volume.End_Val = 100;
        list.Grow(8, 0);
    }
    std::array<Tools*, 7> All() { return {&frame, &title, &list, &volume, &mark, &ok, &cancel}; }
    void Add_To(Host& host) {
        host.Add(frame), host.Add(title), host.Add(list), host.Add(volume), host.Add(mark), host.Add(ok);
        host.Add(cancel);
    }

    Boxs frame;
    Labels title;
    Lists list;
    Valuators volume;
    Boxs mark;
    Buttons ok, cancel;
};

/// Both layouts come to the same: all in a margin of 10, a list beside a bar, and buttons at the right.
Item By_Rows(Controls& c) {
    return Stack({c.frame, Margin(10, Column(6, {Fixed(c.title, 20),
                                                 Stretch(Row(8, {Stretch(c.list, 2), Stretch(c.volume)})),
                                                 Row(8, {Fixed(c.mark, 20), Space(), Fixed(c.ok, 70),
                                                         Fixed(Least(c.cancel, 0, 30), 80)})}))});
}

Item By_Anchors(Controls& c) {
    constexpr unsigned across = EDGE_LEFT | EDGE_RIGHT;
    constexpr unsigned corner = EDGE_RIGHT | EDGE_BOTTOM;
    return Anchors(
        320, 240,
        {Anchor(c.frame, From_Top(0, 0, 320, 240), EDGE_ALL),
         Anchor(c.title, From_Top(10, 10, 300, 20), across | EDGE_TOP),
         Anchor(Row(8, {Stretch(c.list, 2), Stretch(c.volume)}), From_Bottom(10, 46, 300, 158), EDGE_ALL),
         Anchor(c.mark, From_Bottom(10, 10, 20, 30), EDGE_LEFT | EDGE_BOTTOM),
         Anchor(c.ok, From_Top(152, 200, 70, 30), corner),
         Anchor(c.cancel, From_Bottom(230, 10, 80, 30), corner)});
}

/// Where the controls are, and where the bar of the list is.
std::vector<std::vector<int>> Places_Of(Controls& controls) {
    std::vector<std::vector<int>> places;
    for (const Tools* const control : controls.All())
        places.push_back({control->X, control->Y, control->Width, control->Height});
    const Sliders& bar = controls.list.Scroll_Bar;
    places.push_back({bar.X, bar.Y, bar.Width, bar.Height, bar.Curs_Half});
    return places;
}

TEST(Host_Layout_Test, Both_Kinds_Give_Every_Size_Its_Places_And_Nothing_Drifts) {
    for (const auto& layout : {By_Rows, By_Anchors}) {
        SCOPED_TRACE(layout == By_Rows ? "rows" : "anchors");
        Controls controls;
        Laid_Out window(320, 240);
        controls.Add_To(*window.host);
        Lay_Out(*window.host, layout(controls));
        const auto places = Places_Of(controls);
        const Picture picture = window.Shown();
        window.Resize(501, 423);
        auto larger = Places_Of(controls);
        larger.pop_back();
        const std::vector<std::vector<int>> wanted = {
            {0, 0, 500, 422}, {10, 393, 480, 19}, {10, 46, 314, 340}, {333, 46, 157, 340},
            {10, 10, 19, 29}, {333, 10, 69, 29},  {411, 10, 79, 29}};
        EXPECT_EQ(larger, wanted);
        EXPECT_TRUE(Same(window.Shown(), window.All_Painted())) << "nothing was left where it stood before";
        for (int i = 0; i < 30; ++i)
            window.Resize(321 + 37 * i % 400, 241 + 53 * i % 300);
        for (const SIZE& size : {SIZE{0, 0}, SIZE{1, 1}, SIZE{32767, 3}, SIZE{3, 32767}})
            window.window.Resize(size.cx, size.cy);
        EXPECT_GT(controls.list.Width, 0) << "what does not fit goes on beyond the window";
        window.Resize(320, 240);
        EXPECT_EQ(Places_Of(controls), places);
        EXPECT_TRUE(Same(window.Shown(), picture));
    }
}

/// Does something when it gets its place.
class Placed : public Tools {
  public:
    void Init(HWND target) {
        Window = target, Rect = {X, Y, X + Width + 1, Y + Height + 1};
        if (on_init) on_init();
    }
    void Draw() {}
    std::function<void()> on_init;
};

TEST(Host_Layout_Test, What_Is_Anchored_To_No_Side_Keeps_To_The_Middle) {
    Placed middle;
    Laid_Out window(200, 100);
    window.host->Add(middle);
    Lay_Out(*window.host, Anchors(200, 100, {Anchor(middle, From_Bottom(60, 0, 50, 20), EDGE_BOTTOM)}));
    window.Resize(212, 100);
    EXPECT_TRUE(middle.X == 66 && middle.Width == 49);
    const Item across = Anchor(Least(middle, 70, 0), From_Bottom(60, 0, 50, 20), EDGE_LEFT | EDGE_RIGHT);
    EXPECT_EQ(Lay_Out(*window.host, Anchors(200, 100, {across})).cx, 60 + 70 + 90)
        << "with what is beside it";
}

TEST(Host_Layout_Test, What_Is_Hidden_Or_Removed_Gives_Its_Room_Away) {
    Placed above, details, more, rest;
    Laid_Out window(100, 100);
    Host& host = *window.host;
    host.Add(above), host.Add(details), host.Add(more), host.Add(rest);
    Lay_Out(host, Column(5, {Fixed(above, 20), If_Shown(Row(0, {Fixed(details, 50), If_Shown(more)})),
                             Stretch(Least(rest, 0, 10))}));
    window.Shown();
    EXPECT_EQ(rest.Height, 100 - 20 - 5 - 2 - 5 - 1);
    host.Set_Shown(more, false);
    window.Shown();
    EXPECT_EQ(rest.Height, 67) << "the row has another control";
    host.Set_Shown(above, false);
    window.Shown();
    EXPECT_EQ(rest.Height, 67) << "who was not asked keeps the room";
    host.Set_Shown(details, false);
    window.Shown();
    EXPECT_EQ(rest.Height, 74) << "the gap goes, too";
    EXPECT_EQ(details.Height, 1) << "and what is hidden stays as it is";
    host.Set_Shown(details, true);
    window.Shown();
    EXPECT_EQ(rest.Height, 67);
    // A control is removed while the one before it gets its place, and another where it stood is not its.
    above.on_init = [&] { host.Remove(rest), host.Add(rest); };
    window.Resize(120, 100);
    EXPECT_EQ(rest.Width, 99) << "not touched any more";
    EXPECT_EQ(above.Width, 119);
    above.on_init = {};
    window.Resize(130, 100);
    EXPECT_EQ(rest.Width, 99);
    // One that changes the size of the window while it gets its place.
    above.on_init = [&] {
        if (above.Width < 149) window.window.Resize(above.Width + 11, 100);
    };
    window.Resize(140, 100);
    EXPECT_TRUE(above.Width == 149 && details.X + details.Width < 150);
}

TEST(Host_Layout_Test, The_Window_Is_Not_Smaller_Than_All_Need) {
    Labels label;
    Buttons narrow, wide;
    Boxs box;
    Laid_Out window(300, 200);
    Host& host = *window.host;
    label.Name = "A label";
    Place(narrow, "Go", 0, 0, 0, 0), Place(wide, "A rather long caption", 0, 0, 0, 0);
    host.Add(label), host.Add(narrow), host.Add(wide), host.Add(box);
    SetWindowLongPtrA(window.window, GWL_STYLE, WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    const SIZE least = Lay_Out(
        host, Margin(7, Column(3, {label, Row(4, {Stretch(narrow), Stretch(wide)}), Least(box, 0, 40)})));
    SetWindowPos(window.window, nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER | SWP_FRAMECHANGED);
    RECT client;
    GetClientRect(window.window, &client);
    EXPECT_TRUE(client.bottom == least.cy && client.right >= least.cx) << client.right << " " << least.cx;
    SetWindowPos(window.window, nullptr, 0, 0, 1000, 10, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(narrow.Width, wide.Width);
    GetClientRect(window.window, &client);
    EXPECT_EQ(client.bottom, least.cy);
    // The wide one has no share but what it needs, and the other the rest.
    SetWindowLongPtrA(window.window, GWL_STYLE, WS_POPUP | WS_VISIBLE);
    window.window.Resize(least.cx, least.cy);
    EXPECT_GT(wide.Width, narrow.Width + 40);
    EXPECT_EQ(box.Height, 39);
    const auto room_beside_caption = [&](const Buttons& button) {
        Begin_Draw(window.window, nullptr);
        const int caption = Text_Width(button.Font, button.Name);
        End_Draw();
        return button.Width - caption;
    };
    EXPECT_NEAR(room_beside_caption(wide), 12, 8);
    EXPECT_GT(room_beside_caption(narrow), 3);
    narrow.Name = "A caption that is much longer still";
    SendMessageA(window.window, WM_SIZE, SIZE_RESTORED, 0);
    EXPECT_NEAR(room_beside_caption(narrow), 12, 8) << "another caption is measured";
    const auto least_width = [&](unsigned long flag) {
        narrow.Flag = flag;
        return Lay_Out(host, Row(0, {narrow})).cx;
    };
    EXPECT_EQ(Lay_Out(host, Row(0, {Least(box, 0, 90), label})).cy, 90) << "as high as the highest needs";
    EXPECT_EQ(least_width(BUTTON_LAMP), least_width(0) + 8) << "a lamp takes room";
    EXPECT_LT(least_width(FLAG_VERTICAL), least_width(0)) << "letters below each other";
}

}  // namespace
}  // namespace galdren_test
