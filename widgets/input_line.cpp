#include "widgets/input_line.h"

#include <climits>
#include <cstdlib>
#include <cstring>

#include "tools/arithmetic.h"
#include "tools/code_page.h"
#include "tools/keyboard.h"
#include "widgets/kept_texts.h"

namespace galdren {

namespace {

constexpr int Key_Backspace = 8;
constexpr unsigned UTF_8 = 65001;

/// What cannot be shown becomes a blank.
char Shown(char character) {
    constexpr unsigned char Delete_Character = 127;
    const auto byte = static_cast<unsigned char>(character);
    return byte < ' ' || byte == Delete_Character ? ' ' : character;
}

std::string_view Rest(std::string_view text, int at) { return text.substr(static_cast<std::size_t>(at)); }

int Size_Of(std::string_view text) { return static_cast<int>(text.size()); }

/// `at`, or the beginning of the coded character that it is inside of.
int Character_Begin(std::string_view text, int at) {
    int place = 0;
    for (int next = 0; next <= at && place < Size_Of(text);
         next = place + Character_Length(Rest(text, place)))
        place = next;
    return std::min(place, at);
}

/// What words are made of: all characters of a word are of one kind. Japanese has no blanks, and its words
/// mostly end where its scripts meet.
enum class Kind { Blank, Letter, Ideograph, Hiragana, Katakana, Sign };

Kind Kind_At(std::string_view text, int at) {
    const std::string_view rest = Rest(text, at);
    unsigned code = 0;
    Text_Decode(rest.data(), Size_Of(rest), &code);
    if (code > 0xFFFF || code == '_') return Kind::Letter;
    WORD kinds = 0;
    const auto unit = static_cast<wchar_t>(code);
    GetStringTypeW(CT_CTYPE1, &unit, 1, &kinds);
    if (kinds & (C1_SPACE | C1_BLANK)) return Kind::Blank;
    if (!(kinds & (C1_ALPHA | C1_DIGIT))) return Kind::Sign;
    WORD scripts = 0;
    GetStringTypeW(CT_CTYPE3, &unit, 1, &scripts);
    if (scripts & C3_IDEOGRAPH) return Kind::Ideograph;
    if (scripts & C3_KATAKANA) return Kind::Katakana;
    return scripts & C3_HIRAGANA ? Kind::Hiragana : Kind::Letter;
}

/// The end of the characters of one kind from a place on.
int Kind_End(std::string_view text, int at, Kind kind) {
    while (at < Size_Of(text) && Kind_At(text, at) == kind)
        at = Next_Character(text, at);
    return at;
}

/// The beginning of the characters of one kind before a place.
int Kind_Begin(std::string_view text, int at, Kind kind) {
    while (at > 0) {
        const int before = Previous_Character(text, at);
        if (Kind_At(text, before) != kind) break;
        at = before;
    }
    return at;
}

/// Whether a key takes what is selected away and does nothing else.
bool Erases(int key) {
    const int plain = key & ~KEY_CONTROL;
    return plain == (KEY_NAVIGATION | VK_DELETE) || key == (KEY_KEYPAD | VK_DELETE) || plain == Key_Backspace;
}

/// Whether bytes begin a character of which others are still to come.
bool Is_Begun(std::string_view bytes) {
    const auto lead = static_cast<unsigned char>(bytes[0]);
    if (Text_Code_Page() != UTF_8) return bytes.size() == 1 && IsDBCSLeadByteEx(Text_Code_Page(), lead);
    const std::size_t wanted = lead < 0xC2 || lead > 0xF4 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    const auto follows = [](char byte) { return (byte & 0xC0) == 0x80; };
    return bytes.size() < wanted && std::all_of(bytes.begin() + 1, bytes.end(), follows);
}

/// Whether bytes are one character and nothing else.
bool Is_Character(std::string_view bytes) {
    const bool lone = bytes.size() == 1 && bytes[0] & 0x80 && Text_Code_Page() == UTF_8;
    return !lone && Character_Length(bytes) == Size_Of(bytes);
}

}  // namespace

bool Passes_Filters(unsigned long flag, std::string_view character) {
    const auto is_one_of = [character](std::string_view set) {
        return character.size() == 1 && set.find(character[0]) != std::string_view::npos;
    };
    if (flag & TEXT_FLOAT && !is_one_of("0123456789+-.e")) return false;
    if (flag & TEXT_INTEGER && !is_one_of("0123456789+-")) return false;
    return !(flag & TEXT_HEXADECIMAL) || is_one_of("0123456789abcdefABCDEF");
}

std::string_view Whole_Characters(std::string_view text, int most) {
    return text.substr(0, static_cast<std::size_t>(Length_Within(text, most)));
}

Text_Span Word_Around(std::string_view text, int at) {
    if (text.empty()) return {0, 0};
    const int inside = at < Size_Of(text) ? at : Previous_Character(text, at);
    const Kind kind = Kind_At(text, inside);
    return {Kind_Begin(text, inside, kind), Kind_End(text, inside, kind)};
}

/// Notes what an edit changes, for a scope, when the line can be edited as people expect.
class Input_Line::Edit {
  public:
    Edit(Input_Line& edited, Edit_Kind of_edit) : line(edited), kind(of_edit) {
        Edit_Past*& past = line.state.past;
        if (!line.Edits()) return;
        if (!past) past = new (std::nothrow) Edit_Past;
        if (past) past->Begin(line.field);
    }
    ~Edit() {
        line.Note_Change();
        if (line.Edits() && line.state.past) line.state.past->End(line.field, kind);
    }
    Edit(const Edit&) = delete;
    Edit& operator=(const Edit&) = delete;

  private:
    Input_Line& line;
    Edit_Kind kind;
};

/// The application may have written another line, or placed the cursor inside a character.
Input_Line::Input_Line(Text_Fields& fields, unsigned long style, Edit_State& kept)
    : field(fields), flag(style), state(kept) {
    const int other = field.Cursor_Pos + field.Selected;
    const auto proper = [this](int place) { return Character_Begin(Text(), std::clamp(place, 0, Length())); };
    field.Cursor_Pos = Low_16(proper(field.Cursor_Pos));
    if (field.Selected != 0) field.Selected = Low_16(Edits() ? proper(other) - field.Cursor_Pos : 0);
}

int Input_Line::Length() const {
    return static_cast<int>(std::find(field.Line, field.Line + Text_Fields::Line_Room - 1, '\0') -
                            field.Line);
}

Text_Span Input_Line::Selection() const {
    const int other = field.Cursor_Pos + field.Selected;
    return {std::min<int>(field.Cursor_Pos, other), std::max<int>(field.Cursor_Pos, other)};
}

bool Input_Line::Take(int key) {
    if (key < ' ' || key > UCHAR_MAX) state.begun[0] = '\0';
    if (field.Selected != 0 && Erases(key)) return Erase_Selection();
    if (const std::optional<int> place = Place_Of(key)) return Move(key, *place);
    switch (key) {
        case KEY_NAVIGATION | VK_UP:
        case KEY_KEYPAD | VK_NUMPAD8:
            return Recall_Older();
        case KEY_NAVIGATION | VK_DOWN:
        case KEY_KEYPAD | VK_NUMPAD2:
            return Recall_Newer();
        case KEY_NAVIGATION | VK_DELETE:
        case KEY_KEYPAD | VK_DELETE:
            return Erase({Cursor(), Next_Character(Text(), Cursor())}, Edit_Kind::Erased);
        case Key_Backspace:
            return Cursor() > 0 && Erase({Previous_Code(Text(), Cursor()), Cursor()}, Edit_Kind::Erased);
        case KEY_CONTROL | KEY_NAVIGATION | VK_DELETE:
            return Edits() && Erase({Cursor(), Word_End()}, Edit_Kind::Other);
        case KEY_CONTROL | Key_Backspace:
            return Edits() && Erase({Word_Begin(), Cursor()}, Edit_Kind::Other);
        case KEY_KEYPAD | VK_DECIMAL:
            return Type('.');
        default:
            return key >= ' ' && key <= UCHAR_MAX && Type(static_cast<char>(key));
    }
}

/// Where a key takes the caret; nothing for a key that does not move it.
std::optional<int> Input_Line::Place_Of(int key) const {
    const bool by_word = Edits() && key & KEY_CONTROL;
    const bool leaves = field.Selected != 0 && !(key & (KEY_SHIFT | KEY_CONTROL));
    switch (Edits() ? key & ~(KEY_SHIFT | KEY_CONTROL) : key) {
        case KEY_NAVIGATION | VK_LEFT:
        case KEY_KEYPAD | VK_NUMPAD4:
            if (leaves) return Selection().from;
            return by_word ? Word_Begin() : Previous_Character(Text(), Cursor());
        case KEY_NAVIGATION | VK_RIGHT:
        case KEY_KEYPAD | VK_NUMPAD6:
            if (leaves) return Selection().to;
            return by_word ? Word_End() : Next_Character(Text(), Cursor());
        case KEY_NAVIGATION | VK_HOME:
        case KEY_KEYPAD | VK_NUMPAD7:
            return 0;
        case KEY_NAVIGATION | VK_END:
        case KEY_KEYPAD | VK_NUMPAD1:
            return Length();
        default:
            return {};
    }
}

bool Input_Line::Move(int key, int place) {
    const int other = Cursor() + field.Selected;
    Select(Edits() && key & KEY_SHIFT ? other : place, place);
    return true;
}

void Input_Line::Select(int from, int to) {
    field.Cursor_Pos = Low_16(to);
    field.Selected = Low_16(from - to);
    if (state.past) state.past->Break();
}

/// Where the next word begins. Of a password nobody is to see where its words are.
int Input_Line::Word_End() const {
    if (flag & TEXT_PASSWORD || Cursor() == Length()) return Length();
    const int end = Kind_End(Text(), Cursor(), Kind_At(Text(), Cursor()));
    return Kind_End(Text(), end, Kind::Blank);
}

/// Where the word before the caret begins.
int Input_Line::Word_Begin() const {
    const int end = Kind_Begin(Text(), Cursor(), Kind::Blank);
    if (flag & TEXT_PASSWORD || end == 0) return 0;
    return Kind_Begin(Text(), end, Kind_At(Text(), Previous_Character(Text(), end)));
}

bool Input_Line::Erase(Text_Span span, Edit_Kind kind) {
    const Edit edit(*this, kind);
    Remove(span);
    return true;
}

bool Input_Line::Erase_Selection() { return !Selection().Is_Empty() && Erase(Selection(), Edit_Kind::Other); }

void Input_Line::Remove(Text_Span span) {
    char* const line = field.Line;
    std::copy(line + span.to, line + Length() + 1, line + span.from);
    field.Cursor_Pos = Low_16(span.from);
    field.Selected = 0;
}

/// Takes a byte, which may be one of several that are a character. What belongs to none is dropped.
bool Input_Line::Type(char byte) {
    const std::size_t before = std::strlen(state.begun);
    state.begun[before] = byte;
    state.begun[before + 1] = '\0';
    const std::string_view bytes(state.begun, before + 1);
    if (Is_Begun(bytes)) return false;
    char character[sizeof state.begun];
    const std::string_view whole(character, bytes.copy(character, bytes.size()));
    state.begun[0] = '\0';
    if (Is_Character(whole)) return Insert(whole);
    return before > 0 && Type(byte);
}

bool Input_Line::Insert(std::string_view character) {
    if (!Lets_In(character)) return false;
    const bool begins_step = character == " " || field.Selected != 0;
    if (begins_step && state.past) state.past->Break();
    const Edit edit(*this, Edit_Kind::Typed);
    Put(character);
    return true;
}

bool Input_Line::Insert_All(std::string_view text) {
    const Edit edit(*this, Edit_Kind::Other);
    bool changed = false;
    while (!text.empty()) {
        const auto bytes = static_cast<std::size_t>(Character_Length(text));
        const std::string_view character = text.substr(0, bytes);
        text.remove_prefix(bytes);
        const bool is_control = static_cast<unsigned char>(character[0]) < ' ';
        if (is_control || !Passes_Filters(flag, character)) continue;
        if (!Lets_In(character)) break;
        Put(character);
        changed = true;
    }
    return changed;
}

/// Whether filters and room let a character in, in place of what is selected.
bool Input_Line::Lets_In(std::string_view character) const {
    const int left = Length() - Selection().Length();
    return Passes_Filters(flag, character) && left + Size_Of(character) <= Text_Fields::Longest_Input;
}

/// Puts a character in place of what is selected.
void Input_Line::Put(std::string_view character) {
    if (flag & TEXT_INTEGER && std::strtol(field.Line, nullptr, 10) == 0) {
        // What is typed over a zero replaces it.
        Remove({0, Length()});
    } else if (field.Selected != 0) {
        Remove(Selection());
    }
    char* const place = field.Line + field.Cursor_Pos;
    std::copy_backward(place, field.Line + Length() + 1, field.Line + Length() + 1 + character.size());
    character.copy(place, character.size());
    field.Cursor_Pos = Low_16(field.Cursor_Pos + Size_Of(character));
}

bool Input_Line::Can_Go(int step) const { return state.past && state.past->Can_Go(field, step); }

bool Input_Line::Go(int step) {
    if (!Can_Go(step)) return false;
    state.past->Go(field, step);
    Note_Change();
    return true;
}

void Input_Line::Remember() {
    const Kept_Texts history = History_Of(field);
    if (!history.Make()) return;
    history.Begin();
    history.Put(Text());
}

void Input_Line::Note_Change() {
    if (flag & TEXT_REPORT_CHANGES) field.Mode |= TEXT_CHANGED;
}

bool Input_Line::Recall_Older() {
    const char* const entry = History_Of(field).At(field.History_Pos);
    if (!entry) return Note_Change(), false;
    ++field.History_Pos;
    Recall(entry);
    return true;
}

/// Goes back by one entry, so that Up and then Down show the same one twice.
bool Input_Line::Recall_Newer() {
    const char* const entry = History_Of(field).At(field.History_Pos - 1);
    if (entry) --field.History_Pos;
    Recall(entry ? entry : "");
    return true;
}

void Input_Line::Recall(std::string_view entry) {
    const Edit edit(*this, Edit_Kind::Other);
    const std::string_view whole = Whole_Characters(entry, Text_Fields::Line_Room - 1);
    char* const end = field.Line + whole.copy(field.Line, whole.size());
    std::transform(field.Line, end, field.Line, Shown);
    std::fill(end, field.Line + Text_Fields::Line_Room, '\0');
    field.Cursor_Pos = Low_16(Length());
    field.Selected = 0;
}

}  // namespace galdren
