// Directory browsers on real directories, beside a walk through the same directories and the native tree.

#include <windows.h>
// Needs windows.h.
#include <commctrl.h>

#include <string>
#include <utility>

#include "footprint.h"
#include "scene.h"

namespace {

using bench::Compare;
using bench::Compare_Steps;
using bench::Native_Control;
using bench::Our_Side;
using bench::Require;
using bench::Result;
using bench::Shown;
using bench::Stage;
using bench::Steps;
using bench::Summary;

constexpr int Few = 100;
constexpr int Many = 10'000;
constexpr RECT Tree_Place{40, 40, 440, 440};
/// The place of the rows, without the scroll bars.
constexpr RECT Rows_Place{60, 85, 400, 380};
constexpr POINT On_Rows{240, 240};
constexpr int Row_Height = 18;
constexpr int Rows_Pixels = 100;  // at least as many change when other rows are shown

std::string Name_Of(int index) { return "directory " + std::to_string(10'000 + index); }

/// A directory in the temporary directory, with `count` directories in it. Every fourth has one in it.
class Sample_Directory {
  public:
    Sample_Directory(std::string place, int directories) : path(std::move(place)), count(directories) {
        CreateDirectoryA(path.c_str(), nullptr);
        For_Each([](const std::string& name) { CreateDirectoryA(name.c_str(), nullptr); }, true);
    }
    ~Sample_Directory() {
        For_Each([](const std::string& name) { RemoveDirectoryA(name.c_str()); }, false);
        RemoveDirectoryA(path.c_str());
    }
    Sample_Directory(const Sample_Directory&) = delete;
    Sample_Directory& operator=(const Sample_Directory&) = delete;
    const std::string& Path() const { return path; }

  private:
    template <class Use>
    void For_Each(Use use, bool parents_first) {
        for (int i = 0; i < count; ++i) {
            const std::string name = path + '\\' + Name_Of(i);
            if (parents_first) use(name);
            if (i % 4 == 0) use(name + "\\below");
            if (!parents_first) use(name);
        }
    }

    std::string path;
    int count;
};

/// What the rows of the table share; gone when the program ends.
struct Samples {
    std::string place = Temporary_Directory() + "galdren_bench_" + std::to_string(GetCurrentProcessId());
    Sample_Directory top{place, 0};
    Sample_Directory few{place + "\\few", Few};
    Sample_Directory many{place + "\\many", Many};

    static std::string Temporary_Directory() {
        char path[MAX_PATH] = "";
        GetTempPathA(MAX_PATH, path);
        return path;
    }
};

const Samples& The_Samples() {
    static const Samples samples;
    return samples;
}

/// The walk that the browser cannot do without: each directory in a directory, whether it can be listed, and
/// whether there is one in it.
int Walk(const std::string& path) {
    int found = 0;
    WIN32_FIND_DATAA entry;
    const HANDLE search = FindFirstFileA((path + "\\*").c_str(), &entry);
    Require(search != INVALID_HANDLE_VALUE, "the directories are not there");
    do {
        if (!(entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) || entry.cFileName[0] == '.') continue;
        WIN32_FIND_DATAA below;
        const HANDLE look = FindFirstFileA((path + '\\' + entry.cFileName + "\\*").c_str(), &below);
        if (look == INVALID_HANDLE_VALUE) continue;
        bool is_tree = false;
        do {
            is_tree = (below.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) && below.cFileName[0] != '.';
        } while (!is_tree && FindNextFileA(look, &below));
        FindClose(look);
        found += is_tree;
    } while (FindNextFileA(search, &entry));
    FindClose(search);
    return found;
}

/// Shows the sample directories, all closed.
void Show_Samples(DirTrees& tree) {
    tree.Set(The_Samples().place.c_str());
    tree.Vertical_Bar.Val = 0;
    tree.Draw();
}

int Row_Called(const DirTrees& tree, const char* name) {
    for (int i = 0; i < tree.Nb_Row; ++i) {
        if (std::string(tree.Row[i].node->name) == name) return i;
    }
    return -1;
}

/// Presses the mark of a sample, which opens or closes it.
void Press_Mark(const Stage& stage, DirTrees& tree, int count) {
    const int row = Row_Called(tree, count == Few ? "few" : "many");
    Require(row >= 0, "the sample is not in the tree");
    const int x = tree.List_Box.X + 2 * SPACE + Row_Height * (tree.Row[row].depth - 1) + 7 -
                  static_cast<int>(tree.Horizontal_Bar.Val);
    const int y = tree.List_Box.Y + tree.List_Box.Height + static_cast<int>(tree.Vertical_Bar.Val) - SPACE -
                  Row_Height * (row + 1) + 4;
    const int rows = tree.Nb_Row;
    bench::Put_Pointer(stage, {x, Stage::Height - 1 - y});
    tree.Select(EVENT_PRESS | EVENT_LEFT);
    bench::Put_Pointer(stage, On_Rows);
    Require(std::abs(tree.Nb_Row - rows) == count, "the sample did not open or close");
}

void Fill(DirTrees& tree) { bench::Place(tree, Tree_Place); }

/// Scrolls so that a sample and what is in it show.
void Scroll_To(DirTrees& tree, int count) {
    tree.Vertical_Bar.Val = static_cast<float>(Row_Height * Row_Called(tree, count == Few ? "few" : "many"));
    tree.Draw();
}

/// A browser of ours that shows a sample, open.
class Our_Tree : public Our_Side<DirTrees> {
  public:
    explicit Our_Tree(int count) : Our_Side(Fill) {
        Show_Samples(Get());
        Scroll_To(Get(), count);
        Press_Mark(Window(), Get(), count);
        Scroll_To(Get(), count);
    }
};

/// A native tree with one open branch of as many items.
class Native_Tree {
  public:
    explicit Native_Tree(int count)
        : tree(stage, WC_TREEVIEWA, "",
               WS_VISIBLE | WS_BORDER | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT, Tree_Place) {
        tree.Send(TVM_SETITEMHEIGHT, Row_Height);
        branch = Insert(TVI_ROOT, "many");
        for (int i = 0; i < count; ++i)
            Insert(branch, Name_Of(i).c_str());
        Expand(TVE_EXPAND);
        stage.Raise();
        stage.Repaint();
    }
    const Stage& Window() const { return stage; }
    const Native_Control& Get() const { return tree; }
    void Expand(WPARAM how) const {
        tree.Send(TVM_EXPAND, how, reinterpret_cast<LPARAM>(branch));
        UpdateWindow(tree.Get());
    }

  private:
    HTREEITEM Insert(HTREEITEM parent, const char* name) const {
        TVINSERTSTRUCTA item{};
        item.hParent = parent;
        item.hInsertAfter = TVI_LAST;
        item.item.mask = TVIF_TEXT;
        item.item.pszText = const_cast<char*>(name);
        return reinterpret_cast<HTREEITEM>(tree.Send(TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item)));
    }

    Stage stage;
    Native_Control tree;
    HTREEITEM branch{};
};

/// A press that reads, beside the bare walk.
Result Open_Directory() {
    constexpr int Repetitions = 5;
    Our_Side<DirTrees> ours(Fill);
    const std::string path = The_Samples().many.Path();
    Require(Walk(path) == Many / 4, "the walk goes past directories");
    return Compare({[&] { Press_Mark(ours.Window(), ours.Get(), Many); }, 1,
                    [&] {
                        Show_Samples(ours.Get());
                        Scroll_To(ours.Get(), Many);
                    }},
                   {[&] { Walk(path); }}, Repetitions);
}

/// A branch that is read opens again.
Result Open_Branch() {
    Our_Tree ours(Many);
    Native_Tree native(Many);
    const auto press = [&] { Press_Mark(ours.Window(), ours.Get(), Many); };
    const auto show = [&] {
        press();
        bench::Flush();
    };
    const auto expand = [&] {
        native.Expand(TVE_EXPAND);
        bench::Flush();
    };
    ours.Window().Raise();
    return Compare({show, 1,
                    [&] {
                        ours.Window().Raise();
                        press();
                    }},
                   {expand, 1, [&] {
                        native.Window().Raise();
                        native.Expand(TVE_COLLAPSE);
                    }});
}

constexpr int Notches = 20;

Steps Scroll_Ours(Our_Tree& ours) {
    return {ours.Window(), Rows_Place, Rows_Pixels, [&ours](int step) {
                bench::Put_Pointer(ours.Window(), On_Rows);
                ours.Get().Scroll(step % (2 * Notches) < Notches ? -1 : 1);
            }};
}

Steps Scroll_Native(const Native_Tree& native) {
    return {native.Window(), Rows_Place, Rows_Pixels, [&native](int step) {
                native.Get().Send(WM_VSCROLL, step % (2 * Notches) < Notches ? SB_LINEDOWN : SB_LINEUP);
                UpdateWindow(native.Get().Get());
            }};
}

template <Shown shown>
Result Scroll() {
    Our_Tree ours(Many);
    Native_Tree native(Many);
    return Compare_Steps(Scroll_Ours(ours), Scroll_Native(native), 2 * Notches, shown);
}

/// The short tree stands in for the native one.
Result Scroll_Long_And_Short() {
    Our_Tree ours(Many);
    Our_Tree few(Few);
    return Compare_Steps(Scroll_Ours(ours), Scroll_Ours(few), 2 * Notches, Shown::Together);
}

/// What an open branch holds, rows included.
Result Memory() {
    constexpr double Megabyte = 1e6;
    Our_Side<DirTrees> ours(Fill);
    Show_Samples(ours.Get());
    Scroll_To(ours.Get(), Many);
    const double closed = bench::Heap_Bytes();
    Press_Mark(ours.Window(), ours.Get(), Many);
    const double open = bench::Heap_Bytes();
    const double before_native = bench::Heap_Bytes();
    const Native_Tree native(Many);
    const double with_native = bench::Heap_Bytes();
    const auto only = [](double value) { return Summary{value, value, value}; };
    return {only((open - closed) / Megabyte), only((with_native - before_native) / Megabyte)};
}

using bench::No_Target;
using bench::Of_Native;

const bench::Register rows[] = {
    bench::Register({"tree: 10,000 directories read, beside a walk", "us", Of_Native(1.3), Open_Directory}),
    bench::Register({"tree: branch of 10,000 opened, on display", "us", Of_Native(0.12), Open_Branch}),
    bench::Register(
        {"tree: scroll 10,000 by one, on display", "us", Of_Native(0.08), Scroll<Shown::Together>}),
    bench::Register(
        {"tree: scroll 10,000 by one, each on display", "us", No_Target(), Scroll<Shown::One_By_One>}),
    bench::Register({"tree: scroll 10,000, beside our 100", "us", Of_Native(1.15), Scroll_Long_And_Short}),
    bench::Register({"tree: memory of 10,000 directories", "MB", Of_Native(1), Memory}),
};

}  // namespace
