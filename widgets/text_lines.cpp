#include "widgets/text_lines.h"

#include <algorithm>
#include <new>
#include <utility>

#include "tools/shading.h"
#include "tools/sharing.h"

namespace galdren {

namespace {

/// Makes an array of zeroed entries where there is none yet.
/// @return false when the memory cannot be had
template <class Entry>
bool Make_Array(Entry*& array, int count) {
    if (!array) array = new (std::nothrow) Entry[static_cast<std::size_t>(count)]();
    return array != nullptr;
}

/// Brings the oldest entry of an array to the front, where the newest is to be.
template <class Entry>
void Bring_Oldest(Entry* array, int count) {
    std::rotate(array, array + count - 1, array + count);
}

}  // namespace

bool Kept_Texts::Make() const { return Make_Array(texts, room); }

void Kept_Texts::Begin() const { Bring_Oldest(texts, room); }

void Kept_Texts::Put(std::string_view text) const {
    delete[] texts[0];
    texts[0] = Duplicate(text);
}

const char* Kept_Texts::At(int index) const {
    return texts && index >= 0 && index < room ? texts[index] : nullptr;
}

int Kept_Texts::Count() const {
    int count = texts ? room : 0;
    while (count > 0 && !texts[count - 1])
        --count;
    return count;
}

void Kept_Texts::Release() const {
    if (Let_Go(Thing::Array, texts)) {
        std::for_each(texts, texts + room, [](const char* text) { delete[] text; });
        delete[] texts;
    }
    texts = nullptr;
}

bool Output_Lines::Make() const {
    return lines.Make() && Make_Array(field.Line_Width, Text_Fields::Most_Lines);
}

void Output_Lines::Begin() const {
    lines.Begin();
    Bring_Oldest(field.Line_Width, Text_Fields::Most_Lines);
    picture.Note_New_Line();
}

void Output_Lines::Put(std::string_view text) const {
    lines.Put(text);
    field.Line_Width[0] = 0;
    picture.Note_Newest();
}

void Output_Lines::Write(std::string_view text) const {
    for (std::size_t end; (end = text.find('\n')) != text.npos; text.remove_prefix(end + 1)) {
        Put(text.substr(0, end));
        Begin();
    }
    Put(text);
}

int Output_Lines::Longest() const {
    const short* const widths = field.Line_Width;
    return widths ? *std::max_element(widths, widths + Text_Fields::Most_Lines) : 0;
}

void Output_Lines::Release() const {
    lines.Release();
    Release_Array(std::exchange(field.Line_Width, nullptr));
    picture.number = 0;
}

bool Run_Reader::Next(Text_Run& run) {
    constexpr std::string_view Codes = "\1\2\3\4\5\6\360\361\362";
    while (!rest.empty()) {
        const std::size_t length = std::min(rest.find_first_of(Codes), rest.size());
        run = {rest.substr(0, length), font, color};
        rest.remove_prefix(length);
        if (length != 0) return true;
        Take_Code(static_cast<unsigned char>(rest[0]));
        rest.remove_prefix(1);
    }
    return false;
}

void Run_Reader::Take_Code(unsigned char code) {
    constexpr unsigned long Colors[] = {0xFF0000, 0x000000, 0xFFFFFF, 0x0000FF, 0x00FFFF, 0x00A000};
    if (code >= TEXT_NORMAL_FONT) {
        font = code - TEXT_NORMAL_FONT;
    } else {
        color = Colors[code - TEXT_BLUE];
    }
}

}  // namespace galdren
