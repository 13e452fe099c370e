#include "widgets/text.h"

#include <algorithm>
#include <cstdarg>
#include <utility>

#include "tools/base.h"
#include "tools/font_cache.h"
#include "tools/sharing.h"
#include "util/error.h"
#include "util/program.h"
#include "widgets/edit_past.h"
#include "widgets/text_lines.h"

using namespace galdren;

Texts::Texts() = default;

Texts::Texts(const Texts& other) : Tools(other), Text_Fields(other) {
    Share_Font(Bold_Font);
    Share_Font(Oblique_Font);
    Share_Array(Lines);
    Share_Array(History);
    Share_Array(Line_Width);
    Share_Array(Line_Plain);
    Forget_Kept_Picture();
}

Texts& Texts::operator=(const Texts& other) { return Reassign(*this, other); }

Texts::~Texts() {
    delete Edits.past;
    Release_Texts();
    Release_Font(Bold_Font);
    Release_Font(Oblique_Font);
}

void Texts::Cleanup() {
    Check(*this, "Text::Cleanup");
    if (!Has_Size(*this)) return;
    Release_Texts();
    std::fill_n(Line, Line_Room, '\0');
    Selected = 0;
    delete std::exchange(Edits.past, nullptr);
    Rescale_Cursor();
    Mode = 0;
}

void Texts::Write(const char* format, ...) {
    if (State == 0) return;
    Check(*this, "Text::Write");
    va_list arguments;
    va_start(arguments, format);
    Append(true, format, arguments);
    va_end(arguments);
}

void Texts::OverWrite(const char* format, ...) {
    if (State == 0) return;
    Check(*this, "Text::OverWrite");
    va_list arguments;
    va_start(arguments, format);
    Append(false, format, arguments);
    va_end(arguments);
}

bool Texts::Plain_Line(int line, char* text) const {
    if (!Lines || line < 0 || line >= Most_Lines || !Lines[line]) return false;
    std::size_t length = 0;
    Text_Run run{};
    for (Run_Reader reader(Lines[line], Codes_In(*this, Flag, line)); reader.Next(run);)
        length += run.text.copy(text + length, Line_Room - 1 - length);
    text[length] = '\0';
    return true;
}

/// Whether there is room for output lines.
bool Texts::Can_Write() {
    if (Has_Flag(*this, FLAG_PASSIVE)) return false;
    if (Output_Lines(*this, Picture).Make()) return true;
    Error_Fct(hwnd, ERROR_LEVEL_MEMORY, "Texts: no memory for lines\n   name: %s", Name_Of(*this));
    return false;
}

/// Lets go of output and history.
void Texts::Release_Texts() {
    Output_Lines(*this, Picture).Release();
    History_Of(*this).Release();
}
