#include "widgets/editor.h"

#include "tools/dimensions.h"
#include "widgets/items.h"

namespace galdren {

void Bind_Editor(Tools& editor, HWND window) {
    Default_Grey(editor);
    Bind(editor, window);
    Remake_Font(editor);
}

Area Room_In_Frame(const Tools& editor, int border) {
    Area room = Area_Of(editor).Inset(border + Part_Gap);
    room.right -= Part_Gap + 2 * BUT_DIM;
    return room;
}

Area Swatch_Area(const Area& room) {
    const int left = room.right + Part_Gap;
    return {left, left + 2 * BUT_DIM, room.bottom, room.top};
}

void Copy_Look(Tools& part, const Tools& editor, int border) {
    part.Border = Within_16(border);
    part.Color = editor.Color;
    Copy_Face(part, editor);
    Copy_Clip(part, editor);
}

void Name_Part(Tools& part, const char* name) {
    Release_Name(part);
    part.Name = name;
}

void Move_Thumb(Valuators& trough, float value) {
    if (value == trough.Val) return;
    trough.Val = value;
    trough.Adjust();
}

}  // namespace galdren
