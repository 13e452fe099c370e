#include <memory>
#include <string>

#include "gallery/pages.h"

namespace gallery {

namespace {

/// `DirTrees::Select` answers this when another directory may be chosen.
constexpr int chosen_anew = 2;

/// A line below a browser that shows what its `Read` answers.
class Answer_Line {
  public:
    Answer_Line(Sheet& owner, const Place& place)
        : sheet(owner),
          label((owner.Plate(place), owner.Label({place.x + 6, place.top, place.width - 12, place.height},
                                                 nullptr, FLAG_TEXT_LEFT))) {
        label.Color = Colors(214, 220, 230);
    }

    void Show(DirTrees& tree) {
        const char* path = tree.Read();
        text = path ? path : "no directory";
        label.Name = text.c_str();
        sheet.Refresh(label);
    }
    const std::string& Text() const { return text; }

  private:
    Sheet& sheet;
    Labels& label;
    std::string text;
};

std::string Quote(const std::string& text) { return '"' + text + '"'; }

/// A browser with a line below it that follows what is chosen.
/// @param path  the directory to begin with; null is none
DirTrees& Add_Browser(Sheet& sheet, const char* heading, const Place& place, const char* name,
                      const char* path) {
    constexpr int line_height = 26;
    sheet.Heading(place.x, place.top - 22, heading).Width = static_cast<short>(place.width);
    const auto line = std::make_shared<Answer_Line>(
        sheet, Place{place.x, place.top + place.height + 8, place.width, line_height});
    const auto press = [&sheet, line](DirTrees& tree) {
        if (sheet.Answer() != chosen_anew) return sheet.Report("press " + Quote(tree.Name));
        line->Show(tree);
        sheet.Report("press " + Quote(tree.Name) + ": Read answers " + line->Text());
    };
    const auto change = [&sheet](DirTrees& tree) {
        const int row = static_cast<int>(tree.Vertical_Bar.Val) / tree.Row_Height();
        if (Button_State == 0) sheet.Report("wheel " + Quote(tree.Name) + ": row " + std::to_string(row));
    };
    DirTrees& tree = sheet.Add<DirTrees>(place, name, 0, press, change);
    tree.Set(path);
    line->Show(tree);
    return tree;
}

std::string System_Directory() {
    char path[MAX_PATH] = "";
    GetSystemDirectoryA(path, MAX_PATH);
    return path;
}

}  // namespace

void Build_Directories(Sheet& sheet) {
    const int top = page_area.top + 22;
    Add_Browser(sheet, "The drives, open down to a directory", {page_area.x, top, 440, 430}, "Directory",
                System_Directory().c_str());
    constexpr int right = page_area.x + 456;
    constexpr int right_width = page_area.width - 456;
    DirTrees& amber =
        Add_Browser(sheet, "Nothing is chosen yet", {right, top, right_width, 180}, "Chosen", nullptr);
    amber.Color = Colors(222, 172, 84);
    Add_Browser(sheet, "Little room", {right, top + 244, right_width, 186}, "In",
                (System_Directory() + "\\drivers\\etc").c_str());
}

}  // namespace gallery
