#include <cstring>
#include <filesystem>
#include <optional>
#include <string>

#include "Galdren_Tools.h"
#include "Galdren_Util.h"
#include "tests/support/code_page.h"
#include "tests/support/directories.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"
#include "util/wide.h"

using namespace galdren_test;

namespace {

std::string Lower(std::string text) {
    Str_To_Lower(text.data());
    return text;
}

/// The marks of a row and its name, such as "+name": '+' closed, '-' open, '.' a leaf, 'x' no access; '*' the
/// current one, '|' the last.
std::string Describe(const Dir_Row& row) {
    const unsigned flags = row.node->flags;
    std::string text = flags & DIR_LEAF ? "." : flags & DIR_NO_ACCESS ? "x" : flags & DIR_OPEN ? "-" : "+";
    if (flags & DIR_CURRENT) text += '*';
    if (flags & DIR_LAST) text += '|';
    return text + row.node->name;
}

/// A browser of 300 x 360, shown with the pointer away.
struct Browser : DirTrees {
    explicit Browser(const Test_Window& its_window, const char* path = nullptr, short height = 360)
        : window(its_window) {
        X = 10, Y = 12, Width = 300, Height = height;
        window.Point_At(0, 0);
        Init(window);
        Set(path);
        Draw();
    }
    int Find(const std::string& name) const {
        int row = 0;
        while (row < Nb_Row && name != Row[row].node->name)
            ++row;
        return row;
    }
    /// The rows below that of `name`, in one line.
    std::string Below(const std::string& name) const {
        std::string text;
        const int parent = Find(name);
        for (int row = parent + 1; row < Nb_Row && Row[row].depth > Row[parent].depth; ++row)
            text += std::string(text.empty() ? "" : " ") + Describe(Row[row]);
        return text;
    }
    /// Puts the pointer on a column of a row, 0 being that of its mark.
    void Point_At(const std::string& name, int column) {
        const int row = Find(name);
        Bring_Into_View(row);
        const RECT place = Row_Place(row);
        EXPECT_GT(place.right, place.left) << name;
        constexpr int from_mark = 38;  // to the name
        window.Point_At(place.left - from_mark + Row_Pitch * column, (place.bottom + place.top) / 2);
    }
    /// A press where the pointer is, which leaves then.
    int Press() {
        const int answer = Select(EVENT_PRESS | EVENT_LEFT);
        window.Point_At(0, 0);
        Select(EVENT_MOVE);
        return answer;
    }
    int Press(const std::string& name, int column) {
        Point_At(name, column);
        return Press();
    }
    int Press_Refresh() {
        window.Point_At(Refresh.X + 5, Refresh.Y + 5);
        return Press();
    }
    /// Passes when the window shows what a copy paints that has nothing kept.
    /// @param event  brings a bar that lights up while it is dragged back to that
    void Expect_Shown(int event = EVENT_TEST) const {
        using galdren_test::Picture;
        const Picture shown(window);
        DirTrees copy(*this);
        Begin_Batch(window);
        copy.Draw(), copy.Select(event);
        End_Batch();
        EXPECT_TRUE(Same(shown, Picture(window))) << Vertical_Bar.Val << ' ' << Horizontal_Bar.Val;
    }

    const Test_Window& window;
};

}  // namespace

TEST(Directory_Browser, Opens_The_Way_And_Chooses) {
    Sample_Directories sample{"a\\",       "a\\In\\",     "a\\In\\deep\\", "a\\.hid\\", "b\\",   "b\\.hid\\",
                              ".hidden\\", "100% & %s\\", "\xC4 \xE9\\",   "z\\",       "z\\z\\"};
    Test_Window window(340, 400);
    Browser tree(window, sample.Plain("A/in").c_str());
    EXPECT_STREQ(tree.Read(), Lower(sample.Plain("a\\in\\")).c_str());
    EXPECT_STREQ(tree.Frame.Name, "In");
    const std::string open = tree.Below(sample.Name());
    for (const char* part : {"-a", "-*|In .|deep", ".b", ".100% & %s", "\xC4 \xE9", "+z"})
        EXPECT_NE(open.find(part), std::string::npos) << part << " in " << open;
    EXPECT_EQ(open.find("hid"), std::string::npos);
    EXPECT_STREQ(tree.Row[0].node->name, "My Computer");
    EXPECT_EQ(tree.Row[0].node->flags, DIR_ROOT | DIR_OPEN);
    EXPECT_EQ(tree.Find("(Z:)"), tree.Nb_Row);

    // What is pressed, its column, the answer, the change of the rows, and the path that is chosen then.
    struct Step {
        const char* name;
        int column, answer, more;
        const char* path;
    };
    // clang-format off
    for (const Step& step : {Step{"b", 0, 1, 0, "a\\in\\"}, {"b", 7, 1, 0, "a\\in\\"}, {"b", 1, 2, 0, "b\\"},
                             {"In", 0, 1, -1, "b\\"}, {"In", 0, 1, 1, "b\\"}, {"z", 0, 1, 1, "b\\"},
                             {"100% & %s", 6, 2, 0, "100% & %s\\"}, {"deep", 3, 2, 0, "a\\in\\deep\\"},
                             {"My Computer", 1, 2, 0, nullptr}}) {
        // clang-format on
        SCOPED_TRACE(step.name);
        const int before = tree.Nb_Row;
        EXPECT_EQ(tree.Press(step.name, step.column), step.answer);
        EXPECT_EQ(tree.Nb_Row - before, step.more);
        EXPECT_EQ(Lower(tree.Read() ? tree.Read() : ""), step.path ? Lower(sample.Plain(step.path)) : "");
        tree.Expect_Shown();
    }
}

TEST(Directory_Browser, Chooses_Names_In_All_Scripts) {
    const Other_Page page(CP_UTF8);
    Sample_Directories sample;
    for (const char* name : Scripts)
        sample.Add(name + std::string("\\"));
    Test_Window window(340, 400);
    Browser tree(window, sample.Plain().c_str());
    for (const char* name : Scripts) {
        EXPECT_EQ(tree.Press(name, 1), 2);
        const std::string chosen = tree.Read() ? tree.Read() : "";
        EXPECT_EQ(Lower(chosen), Lower(sample.Plain(name + std::string("\\"))));
        EXPECT_STREQ(tree.Frame.Name, name);
        tree.Set(chosen.c_str()), tree.Draw();
        EXPECT_EQ(tree.Read() ? Lower(tree.Read()) : "", Lower(chosen)) << "read back";
    }
}

TEST(Directory_Browser, Keeps_To_The_Protocol) {
    Sample_Directories sample{"a\\"};
    Test_Window window(340, 400);
    Browser tree(window, sample.Plain().c_str());
    tree.Point_At("a", 1);
    const auto selects = [&](int event) {
        int answer = -1;
        EXPECT_EQ(window.Changed([&] { answer = tree.Select(event); }), Nothing) << event;
        return answer;
    };
    tree.Select(EVENT_MOVE);
    for (const int event :
         {int{EVENT_MOVE}, EVENT_DRAG | EVENT_LEFT, EVENT_MOVE | EVENT_RIGHT, int{EVENT_TEST}})
        EXPECT_EQ(selects(event), 1);
    window.Point_At(0, 0);
    EXPECT_EQ(selects(EVENT_TEST), 0);
    EXPECT_EQ(selects(EVENT_PRESS), 1);
    EXPECT_EQ(Lower(tree.Read()), Lower(sample.Plain()));
    tree.Width = 0;
    EXPECT_EQ(selects(EVENT_PRESS), 0);
}

TEST(Directory_Browser, Reads_Again_What_Is_Open) {
    Sample_Directories sample{"b\\", "b\\b1\\", "d\\", "d\\d1\\", "f\\"};
    Test_Window window(340, 400);
    Browser tree(window, sample.Plain("d").c_str());
    const auto rows = [&] { return tree.Below(sample.Name()); };
    const auto as_new = [&] {
        Browser other(window, tree.Read());
        return other.Below(sample.Name());
    };
    for (const char* name : {"a\\", "c\\", "e\\", "e\\e1\\", "f\\f1\\", "g\\"})
        sample.Add(name);
    sample.Remove("b\\b1\\");
    EXPECT_EQ(tree.Press_Refresh(), 2);
    EXPECT_EQ(rows(), as_new());
    EXPECT_NE(rows().find("-*d .|d1"), std::string::npos) << rows();
    tree.Expect_Shown();

    Report_Catcher reports;
    sample.Remove("e\\e1\\"), sample.Remove("e\\"), sample.Remove("g\\");
    sample.Remove("d\\d1\\");
    tree.Press("e", 0);
    const std::string vanished = tree.Row[tree.Find("e")].node->path;
    EXPECT_NE(reports.Take().find("11:Scan_Dir(" + vanished + ") -> NULL"), std::string::npos);
    EXPECT_NE(rows().find("xe"), std::string::npos);
    for (const int column : {0, 1})
        EXPECT_EQ(tree.Press("e", column), 1);
    tree.Expect_Shown();
    EXPECT_EQ(tree.Press_Refresh(), 2);
    EXPECT_EQ(rows(), as_new());
    sample.Remove("d\\");
    tree.Name = "Save in";
    EXPECT_EQ(tree.Press_Refresh(), 2);
    EXPECT_EQ(tree.Read(), nullptr);
    EXPECT_STREQ(tree.Frame.Name, "Save in");
    for (const char* name : {"a\\", "b\\", "c\\", "f\\f1\\", "f\\"})
        sample.Remove(name);
    EXPECT_EQ(tree.Press_Refresh(), 2);
    EXPECT_EQ(rows(), "");
    tree.Expect_Shown();
}

TEST(Directory_Browser, Looks_At_Drives_Again) {
    Sample_Directories sample;
    Test_Window window(340, 400);
    Browser tree(window);
    // The first drive becomes one whose medium is a directory, which comes and goes.
    Dir_Tree& drive = tree.Root->child[0];
    std::strcpy(drive.path, "m\\");
    const std::string name = drive.name;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(sample.Plain());
    const auto looks = [&] { return Describe({1, 0, &drive}).substr(0, 1) + tree.Below(name); };
    const auto refreshed = [&] {
        EXPECT_EQ(tree.Press_Refresh(), 2);
        return looks();
    };
    EXPECT_EQ(refreshed(), "+");  // waits until it is opened
    for (const int round : {0, 1}) {
        SCOPED_TRACE(round);
        if (round == 0) tree.Press(name, 0);
        EXPECT_EQ(refreshed(), "x");
        for (const int column : {0, 1})
            EXPECT_EQ(tree.Press(name, column), 1);
        sample.Add("m\\");
        EXPECT_EQ(refreshed(), ".");
        sample.Add("m\\in\\");
        EXPECT_EQ(refreshed(), "+");
        tree.Press(name, 0);
        EXPECT_EQ(looks(), "-.|in");
        EXPECT_EQ(tree.Press(name, 1), 2);
        EXPECT_EQ(tree.Read(), drive.path);
        tree.Expect_Shown();
        sample.Remove("m\\in\\"), sample.Remove("m\\");
    }
    std::filesystem::current_path(before);
}

TEST(Directory_Browser, Moves_What_It_Shows) {
    Sample_Directories sample;
    for (int i = 0; i < 60; ++i)
        sample.Add("d" + std::to_string(100 + i) + "\\");
    for (int i = 0; i < 60; i += 7)
        sample.Add("d" + std::to_string(100 + i) + "\\" + std::string(60, 'w') + "\\");
    Test_Window window(340, 400);
    for (const int height : {360, 150, 100}) {
        SCOPED_TRACE(height);
        Browser tree(window, sample.Plain("d107").c_str(), static_cast<short>(height));
        EXPECT_EQ(tree.Vertical_Bar.Flag, FLAG_VERTICAL | SLIDER_REVERSED | SLIDER_KEEP_GRAB);
        for (const int notches : {-1, -1, -7, 2, -900, 1, 3, 900, -20})
            tree.Scroll(notches), tree.Expect_Shown();
        const Sliders& level = tree.Horizontal_Bar;
        window.Point_At(level.X + 40, level.Y + 5);
        for (const int notches : {-1, 1, 1, 9, -3, 900, -2})
            tree.Scroll(notches), tree.Expect_Shown();
        // By the thumb, to places between two rows.
        const Sliders& bar = tree.Vertical_Bar;
        for (int y = bar.Y + 20; y < bar.Y + bar.Height - 20; y += y % 5 + 1) {
            window.Point_At(bar.X + 5, y);
            EXPECT_EQ(tree.Select((y == bar.Y + 20 ? EVENT_PRESS : EVENT_DRAG) | EVENT_LEFT), 1);
            tree.Expect_Shown(EVENT_DRAG | EVENT_LEFT);
            if (y % 3 == 0) tree.Draw();
            EXPECT_EQ(bar.Capture, 1);
        }
        tree.Select(EVENT_MOVE);
    }
}

TEST(Directory_Browser, Paints_No_Glyph_Outside_The_Text_Clip_Rectangle) {
    Test_Window window(320, 380);
    Browser tree(window, "c:\\windows", 160);
    tree.Clip_X = 12, tree.Clip_Y = 20, tree.Clip_Width = 200, tree.Clip_Height = 10;  // below the rows
    tree.Init(window);
    const auto draw = [&] { tree.Draw(), tree.Bring_Into_View(0), tree.Bring_Into_View(tree.Nb_Row - 1); };
    EXPECT_EQ(window.Changed(draw), (Area{12, 211, 21, 30}));
}

TEST(Directory_Browser, Survives_Any_Path) {
    Sample_Directories sample;
    std::string deep;
    while (sample.Plain(deep).size() < 330) {
        deep += "n\\";
        sample.Add(deep);
    }
    const std::string wide(250, 'w');
    sample.Add(wide + "\\");
    Test_Window window(340, 400);
    Browser tree(window);
    const auto finds = [&](const std::string& path) {
        EXPECT_EQ(tree.Set(path.c_str()), 1);
        tree.Draw(), tree.Scroll(-5);
        return tree.Read() != nullptr;
    };
    for (const std::string& path :
         {sample.Plain(deep), sample.Plain(wide), std::string("c:\\"), std::string("C:/WINDOWS/")})
        EXPECT_TRUE(finds(path)) << path;
    const std::string up_to_2048(2048 - sample.Plain().size(), 'x');
    for (const std::string& path :
         {sample.Plain(deep + "n\\n\\"), sample.Plain(up_to_2048.substr(1)), sample.Plain(up_to_2048),
          std::string(5000, '\\'), std::string("q:\\gone\\"), std::string("y:\\"), std::string(),
          std::string("\\\\server\\share")})
        EXPECT_FALSE(finds(path)) << path.substr(0, 80);
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(sample.Plain());
    tree.Set("n\\..\\n");
    std::filesystem::current_path(before);
    EXPECT_EQ(tree.Read(), Lower(sample.Plain("n\\")));
    tree.Set(tree.Read());
    EXPECT_EQ(tree.Read(), Lower(sample.Plain("n\\")));

    tree.Set(sample.Plain(deep).c_str()), tree.Draw();
    EXPECT_GT(tree.Nb_Row, 120);
    tree.Press("My Computer", 1);
    EXPECT_EQ(tree.Press_Refresh(), 2);
    tree.Horizontal_Bar.Val = tree.Vertical_Bar.Val = 1e30F, tree.Draw(), tree.Expect_Shown();
}

/// Puts a browser made at 100 % to another scale.
void Put_To_Scale(DirTrees& tree, int percent, const DirTrees& design) {
    tree.Scale = static_cast<unsigned short>(percent);
    for (short Tools_Fields::*const length :
         {&Tools_Fields::X, &Tools_Fields::Y, &Tools_Fields::Width, &Tools_Fields::Height})
        tree.*length = static_cast<short>(design.*length * percent / 100);
    tree.Init(nullptr);
}

TEST(Directory_Browser, Grows_With_Its_Scale) {
    Sample_Directories sample{"a\\", "a\\in\\", "b\\", "c\\"};
    for (int i = 0; i < 20; ++i)
        sample.Add("c\\" + std::to_string(i) + "\\");
    Test_Window window(680, 800);
    Browser tree(window, sample.Plain("c").c_str());
    tree.Vertical_Bar.Val = 37, tree.Draw();
    const float value = tree.Vertical_Bar.Val;
    const DirTrees design(tree);
    const Picture plain(window);
    const Boxs& list = design.List_Box;
    const int row = tree.Find("a");
    const short width = tree.Row[row].node->width;

    const Picture twice = window.After([&] { Put_To_Scale(tree, 200, design), tree.Draw(); });
    EXPECT_EQ(tree.Row_Height(), 36);
    EXPECT_NEAR(tree.Row[row].node->width, 2 * width, 4);
    EXPECT_EQ(design.Row[row].node->width, width) << "the copy has names as wide as it shows them";
    // Leads, folders and icons, each pixel doubled.
    const int names = list.X + 2 * SPACE + 28;
    for (int y = list.Y + 30; y < list.Y + list.Height - 20; ++y) {
        for (int x = list.X + 2; x < names; ++x) {
            ASSERT_EQ(twice.At(2 * x, 2 * y), plain.At(x, y)) << x << ' ' << y;
            ASSERT_EQ(twice.At(2 * x + 1, 2 * y + 1), plain.At(x, y)) << x << ' ' << y;
        }
    }
    tree.Bring_Into_View(tree.Find("b"));
    const RECT name = tree.Row_Place(tree.Find("b"));
    window.Point_At(name.left + 1, name.bottom - 2);
    EXPECT_EQ(tree.Press(), 2);
    EXPECT_EQ(Lower(tree.Read()), Lower(sample.Plain("b\\")));
    EXPECT_EQ(tree.Set(sample.Plain("c").c_str()), 1);

    tree.Vertical_Bar.Val = 2 * value;
    for (const int percent : {125, 25, 150, 500, 175, 100}) {
        Put_To_Scale(tree, percent, design);
        tree.Draw();
        tree.Expect_Shown();
    }
    EXPECT_EQ(tree.Vertical_Bar.Val, value);
    EXPECT_TRUE(Same(window.After([&] { tree.Draw(); }), window.After([&] { DirTrees(design).Draw(); })));
    tree.Look = Keep_Theme(Dark_Theme());
    tree.Init(nullptr), tree.Draw();
    EXPECT_NE(Picture(window).At(list.X + 20, list.Y + 4), plain.At(list.X + 20, list.Y + 4)) << "the ground";
}

TEST(Directory_Browser, Goes_Without_Memory) {
    Sample_Directories sample{"a\\", "a\\in\\"};
    const std::string path = sample.Plain("a");
    Test_Window window(340, 400);
    Report_Catcher reports;
    // A new tree, a refreshed one, and one that a copy shares.
    for (int passed = 0; passed < 150; ++passed) {
        Browser tree(window, path.c_str());
        const std::optional<DirTrees> copy(passed % 3 == 2 ? std::optional(tree) : std::nullopt);
        if (passed % 3 == 1) sample.Add("b\\");
        Call_Spy spy;
        spy.Fail_Allocation(passed / 3);
        passed % 3 ? tree.Press_Refresh() : tree.Set(path.c_str());
        tree.Draw();
        if (passed % 3 == 1) sample.Remove("b\\");
        if (!copy) continue;
        DirTrees(*copy).Draw();
        EXPECT_EQ(Lower(DirTrees(*copy).Read()), Lower(sample.Plain("a\\")));
    }
    const std::string all = reports.Take();
    for (const char* report : {"730  of .\\dirtree.cpp \nmemory error in calloc (var=Tree, dim=1x32)",
                               "732  of .\\dirtree.cpp \nmemory error in strdup (var=Tree->name)", "736",
                               "754", "783", "958", "973", "974", "652", "1099", "1116", "1117"})
        EXPECT_NE(all.find("1:line " + std::string(report)), std::string::npos) << report;
}
