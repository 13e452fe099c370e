#include <cstdio>
#include <functional>
#include <string>

#include "Galdren_Util.h"
#include "gallery/pages.h"

namespace gallery {

namespace {

constexpr const char* drive_icons[] = {"icon_mycomputer.rgb", "icon_fixed.rgb", "icon_floppy.rgb",
                                       "icon_cdrom.rgb", "icon_remote.rgb"};
constexpr const char* targa_icon = "star.tga";

/// A plate of one colour with a picture on it.
struct Stand : Boxs {
    std::function<void(Stand&)> picture;

    /// A length at the scale of the window.
    int Scaled(int pixels) const { return pixels * (Scale ? Scale : 100) / 100; }

    void Draw() {
        Boxs::Draw();
        Begin_Draw(Window, Clip_Region);
        Current_Color = Color.get();
        Draw_Box(X + 2, Y + Height - 2, X + Width - 1, Y + 1);
        if (picture) picture(*this);
        End_Draw();
    }
};

Stand& Add_Stand(Sheet& sheet, const Place& place, Colors color, std::function<void(Stand&)> picture) {
    Stand& stand = sheet.Add<Stand>(place, nullptr, FLAG_PASSIVE | FLAG_STATIC | FLAG_NO_RIM);
    stand.Border = 1;
    stand.Color = color;
    stand.picture = std::move(picture);
    return stand;
}

/// Copies a part of what is painted `scale` times as large to another place.
void Enlarge(int x, int y, int width, int height, int to_x, int to_y, int scale) {
    StretchBlt(Z_DC, to_x, to_y + scale * height - 1, scale * width, -scale * height, Z_DC, x, y + height - 1,
               width, -height, SRCCOPY);
}

/// An icon as it is, and enlarged.
void Paint_Icon(Stand& stand, const char* file) {
    const int side = stand.Scaled(16);
    const int x = stand.X + stand.Width - side - stand.Scaled(10);
    const int y = stand.Y + stand.Scaled(10);
    Icon_Draw_Image(&stand, static_cast<short>(x), static_cast<short>(y), stand.Name, file);
    Enlarge(x, y, side, side, stand.X + stand.Scaled(8), y, 6);
}

/// All icons in a row, plain, and in a row below with a border.
void Paint_Icons(Stand& stand) {
    const int pitch = stand.Scaled(22);
    auto x = static_cast<short>(stand.X + stand.Scaled(8));
    const auto upper = static_cast<short>(stand.Y + stand.Scaled(36));
    const auto lower = static_cast<short>(stand.Y + stand.Scaled(10));
    const auto add = [&](const char* file) {
        Icon_Draw_Image(&stand, x, upper, stand.Name, file);
        Icon_Draw_Image(&stand, x, lower, stand.Name, file);
        Icon_Draw_Border(&stand, x, lower, stand.Name, file);
        x = static_cast<short>(x + pitch);
    };
    for (const char* file : drive_icons)
        add(file);
    add(targa_icon);
}

struct Glyph {
    const char* name;
    void (*lead)(Boxs* box, char more, short x, short x_end, short y, short y_top);
    void (*folder)(Boxs* box, short x, short y);
};

const Glyph glyphs[] = {
    {"Leaf", Icon_Lead_Leaf, nullptr},          {"No access", Icon_Lead_No_Access, nullptr},
    {"Expanded", Icon_Lead_Expand, nullptr},    {"Collapsed", Icon_Lead_Collapse, nullptr},
    {"Closed folder", nullptr, Icon_Dir_Close}, {"Open folder", nullptr, Icon_Dir_Open},
};

/// A glyph as it is, and enlarged.
void Paint_Glyph(Stand& stand, const Glyph& glyph) {
    constexpr char more_below = 1;
    const int width = stand.Scaled(20);
    const int height = stand.Scaled(18);
    const int reach_left = stand.Scaled(2);
    const int left = stand.X + stand.Width - width - stand.Scaled(6);
    const auto x = static_cast<short>(left + reach_left);
    const auto x_end = static_cast<short>(x + stand.Scaled(16));
    const auto y = static_cast<short>(stand.Y + stand.Scaled(10));
    if (glyph.lead) glyph.lead(&stand, more_below, x, x_end, y, static_cast<short>(y + height));
    if (glyph.folder) glyph.folder(&stand, x, y);
    Enlarge(left, y, width, height, stand.X + stand.Scaled(6), y, 4);
}

/// A stand of a row of `count`, with a heading above the row.
Place Cell(int index, int count, int top, int height) {
    constexpr int gap = 10;
    const int width = (page_area.width - (count - 1) * gap) / count;
    return {page_area.x + index * (width + gap), page_area.top + top, width, height};
}

void Name_Below(Sheet& sheet, const Place& place, const char* name) {
    sheet.Label({place.x, place.top + place.height + 3, place.width, 16}, name);
}

const Colors paper{222, 225, 230};

void Add_Drives(Sheet& sheet, int top) {
    sheet.Heading(page_area.x, page_area.top + top, "Icons of the drives, from SGI files with transparency");
    for (int i = 0; i < static_cast<int>(std::size(drive_icons)); ++i) {
        const Place place = Cell(i, 5, top + 24, 116);
        const char* file = drive_icons[i];
        Add_Stand(sheet, place, Colors(170, 170, 170), [file](Stand& stand) { Paint_Icon(stand, file); });
        Name_Below(sheet, place, file);
    }
}

void Add_Grounds(Sheet& sheet, int top) {
    sheet.Heading(page_area.x, page_area.top + top,
                  "Over any colour, with borders; the star is a Targa file");
    const Colors colors[] = {paper, {170, 170, 170}, {222, 172, 84}, {92, 128, 160}, {58, 62, 70}};
    for (int i = 0; i < static_cast<int>(std::size(colors)); ++i)
        Add_Stand(sheet, Cell(i, 5, top + 24, 64), colors[i], Paint_Icons);
}

void Add_Glyphs(Sheet& sheet, int top) {
    sheet.Heading(page_area.x, page_area.top + top, "Glyphs of the directory tree");
    for (int i = 0; i < static_cast<int>(std::size(glyphs)); ++i) {
        const Place place = Cell(i, 6, top + 24, 94);
        Add_Stand(sheet, place, paper, [&glyph = glyphs[i]](Stand& stand) { Paint_Glyph(stand, glyph); });
        Name_Below(sheet, place, glyphs[i].name);
    }
}

/// Gives a button the picture of a file in the folder of the icons.
void Give_Icon(Buttons& button, const char* file, const Colors& color) {
    button.Color = color;
    button.Icon((std::string(Inst_Path) + "Icons\\" + file).c_str());
}

void Add_Bodies(Sheet& sheet, int top) {
    sheet.Heading(page_area.x, page_area.top + top, "On buttons, made smaller where they must be");
    const Colors colors[] = {{0, 0, 0}, paper, {222, 172, 84}, {92, 128, 160}, {120, 200, 120}};
    for (int i = 0; i < static_cast<int>(std::size(drive_icons)); ++i) {
        Place place = Cell(i, 6, top + 24, 42 - 5 * i);
        place.width -= 20 * i;
        Give_Icon(sheet.Button(place, nullptr), drive_icons[i], colors[i]);
    }
    Buttons& named = sheet.Button(Cell(5, 6, top + 24, 42), "Drive", FLAG_TEXT_LEFT);
    Give_Icon(named, drive_icons[1], paper);
}

}  // namespace

void Build_Icons(Sheet& sheet) {
    Add_Drives(sheet, 0);
    Add_Grounds(sheet, 174);
    Add_Glyphs(sheet, 280);
    Add_Bodies(sheet, 430);
}

}  // namespace gallery
