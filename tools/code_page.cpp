#include "tools/code_page.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace galdren {

namespace {

struct Range {
    unsigned first, last;
};

/// Characters that combine with the one before: the marks of Unicode's first plane, the vowels and final
/// consonants of Hangul, joiners, and what changes the picture before.
constexpr Range Marks[] = {
    {0x300, 0x36F},     {0x483, 0x489},     {0x591, 0x5BD},    {0x5BF, 0x5BF},   {0x5C1, 0x5C2},
    {0x5C4, 0x5C5},     {0x5C7, 0x5C7},     {0x610, 0x61A},    {0x64B, 0x65F},   {0x670, 0x670},
    {0x6D6, 0x6DC},     {0x6DF, 0x6E4},     {0x6E7, 0x6E8},    {0x6EA, 0x6ED},   {0x711, 0x711},
    {0x730, 0x74A},     {0x7A6, 0x7B0},     {0x7EB, 0x7F3},    {0x7FD, 0x7FD},   {0x816, 0x819},
    {0x81B, 0x823},     {0x825, 0x827},     {0x829, 0x82D},    {0x859, 0x85B},   {0x898, 0x89F},
    {0x8CA, 0x8E1},     {0x8E3, 0x903},     {0x93A, 0x93C},    {0x93E, 0x94F},   {0x951, 0x957},
    {0x962, 0x963},     {0x981, 0x983},     {0x9BC, 0x9BC},    {0x9BE, 0x9CD},   {0x9D7, 0x9D7},
    {0x9E2, 0x9E3},     {0x9FE, 0xA03},     {0xA3C, 0xA51},    {0xA70, 0xA71},   {0xA75, 0xA75},
    {0xA81, 0xA83},     {0xABC, 0xABC},     {0xABE, 0xACD},    {0xAE2, 0xAE3},   {0xAFA, 0xB03},
    {0xB3C, 0xB3C},     {0xB3E, 0xB57},     {0xB62, 0xB63},    {0xB82, 0xB82},   {0xBBE, 0xBCD},
    {0xBD7, 0xBD7},     {0xC00, 0xC04},     {0xC3C, 0xC3C},    {0xC3E, 0xC56},   {0xC62, 0xC63},
    {0xC81, 0xC83},     {0xCBC, 0xCBC},     {0xCBE, 0xCD6},    {0xCE2, 0xCE3},   {0xD00, 0xD03},
    {0xD3B, 0xD3C},     {0xD3E, 0xD4D},     {0xD57, 0xD57},    {0xD62, 0xD63},   {0xD81, 0xD83},
    {0xDCA, 0xDDF},     {0xDF2, 0xDF3},     {0xE31, 0xE31},    {0xE34, 0xE3A},   {0xE47, 0xE4E},
    {0xEB1, 0xEB1},     {0xEB4, 0xEBC},     {0xEC8, 0xECD},    {0xF18, 0xF19},   {0xF35, 0xF35},
    {0xF37, 0xF37},     {0xF39, 0xF39},     {0xF3E, 0xF3F},    {0xF71, 0xF84},   {0xF86, 0xF87},
    {0xF8D, 0xFBC},     {0xFC6, 0xFC6},     {0x102B, 0x103E},  {0x1056, 0x1059}, {0x105E, 0x1060},
    {0x1062, 0x1064},   {0x1067, 0x106D},   {0x1071, 0x1074},  {0x1082, 0x108D}, {0x108F, 0x108F},
    {0x109A, 0x109D},   {0x1160, 0x11FF},   {0x135D, 0x135F},  {0x1712, 0x1715}, {0x1732, 0x1734},
    {0x1752, 0x1753},   {0x1772, 0x1773},   {0x17B4, 0x17D3},  {0x17DD, 0x17DD}, {0x180B, 0x180D},
    {0x180F, 0x180F},   {0x1885, 0x1886},   {0x18A9, 0x18A9},  {0x1920, 0x193B}, {0x1A17, 0x1A1B},
    {0x1A55, 0x1A7F},   {0x1AB0, 0x1B04},   {0x1B34, 0x1B44},  {0x1B6B, 0x1B73}, {0x1B80, 0x1B82},
    {0x1BA1, 0x1BAD},   {0x1BE6, 0x1BF3},   {0x1C24, 0x1C37},  {0x1CD0, 0x1CD2}, {0x1CD4, 0x1CE8},
    {0x1CED, 0x1CED},   {0x1CF4, 0x1CF4},   {0x1CF7, 0x1CF9},  {0x1DC0, 0x1DFF}, {0x200C, 0x200D},
    {0x20D0, 0x20F0},   {0x2CEF, 0x2CF1},   {0x2D7F, 0x2D7F},  {0x2DE0, 0x2DFF}, {0x302A, 0x302F},
    {0x3099, 0x309A},   {0xA66F, 0xA672},   {0xA674, 0xA67D},  {0xA69E, 0xA69F}, {0xA6F0, 0xA6F1},
    {0xA802, 0xA802},   {0xA806, 0xA806},   {0xA80B, 0xA80B},  {0xA823, 0xA827}, {0xA82C, 0xA82C},
    {0xA880, 0xA881},   {0xA8B4, 0xA8C5},   {0xA8E0, 0xA8F1},  {0xA8FF, 0xA8FF}, {0xA926, 0xA92D},
    {0xA947, 0xA953},   {0xA980, 0xA983},   {0xA9B3, 0xA9C0},  {0xA9E5, 0xA9E5}, {0xAA29, 0xAA36},
    {0xAA43, 0xAA43},   {0xAA4C, 0xAA4D},   {0xAA7B, 0xAA7D},  {0xAAB0, 0xAAB0}, {0xAAB2, 0xAAB4},
    {0xAAB7, 0xAAB8},   {0xAABE, 0xAABF},   {0xAAC1, 0xAAC1},  {0xAAEB, 0xAAEF}, {0xAAF5, 0xAAF6},
    {0xABE3, 0xABEA},   {0xABEC, 0xABED},   {0xFB1E, 0xFB1E},  {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F},
    {0x1F3FB, 0x1F3FF}, {0xE0020, 0xE007F}, {0xE0100, 0xE01EF}};

constexpr unsigned Joiner = 0x200D;

bool Is_Mark(unsigned code) {
    if (code < Marks[0].first) return false;
    const auto above =
        std::upper_bound(std::begin(Marks), std::end(Marks), code,
                         [](unsigned wanted, const Range& range) { return wanted < range.first; });
    return code <= above[-1].last;
}

/// Pictures, which a joiner makes one of. Letters that it stands between stay apart.
bool Is_Picture(unsigned code) {
    return (code >= 0x2190 && code < 0x2C00) || (code >= 0x1F000 && code < 0x20000);
}

/// Where a sign stands in the block of a script of India in which a virama makes one letter of two; 0 in any
/// other. Their blocks are built alike.
unsigned Place_In_Indic(unsigned code) {
    constexpr unsigned Size = 0x80;
    constexpr unsigned Blocks[] = {0x900, 0x980, 0xA80, 0xB00, 0xC00, 0xD00};
    const bool known =
        std::find(std::begin(Blocks), std::end(Blocks), code - code % Size) != std::end(Blocks);
    return known ? code % Size : 0;
}

bool Is_Virama(unsigned code) { return Place_In_Indic(code) == 0x4D; }

bool Is_Consonant(unsigned code) {
    const unsigned place = Place_In_Indic(code);
    return (place >= 0x15 && place <= 0x39) || (place >= 0x58 && place <= 0x5F);
}

/// Two of these letters are a flag.
bool Is_Flag_Letter(unsigned code) { return code >= 0x1F1E6 && code <= 0x1F1FF; }

/// A place in a text, and the coded character there.
struct Reader {
    Reader(std::string_view whole, int from) : text(whole), at(std::clamp(from, 0, Length())) { Look(); }

    int Length() const { return static_cast<int>(text.size()); }
    void Advance() {
        at += bytes;
        Look();
    }

    std::string_view text;
    int at;
    int bytes = 0;  ///< 0 at the end
    unsigned code = 0;

  private:
    void Look() {
        code = 0;
        bytes = Text_Decode(text.data() + at, Length() - at, &code);
    }
};

/// The last place before `at` of those that `next` leads to from the start.
template <class Next>
int Last_Before(std::string_view text, int at, Next next) {
    const int end = std::min(at, static_cast<int>(text.size()));
    int before = 0;
    for (int place = 0; place < end; place = next(text, place))
        before = place;
    return before;
}

int Next_Code(std::string_view text, int at) {
    return at + Character_Length(text.substr(static_cast<std::size_t>(at)));
}

}  // namespace

int Character_Length(std::string_view rest) {
    return Text_Decode(rest.data(), static_cast<int>(rest.size()), nullptr);
}

int Next_Character(std::string_view text, int at) {
    Reader reader(text, at);
    unsigned before = reader.code;
    reader.Advance();
    if (Is_Flag_Letter(before) && Is_Flag_Letter(reader.code)) reader.Advance();
    bool links = false;
    while (Is_Mark(reader.code) || (before == Joiner && Is_Picture(reader.code)) ||
           (links && Is_Consonant(reader.code))) {
        before = reader.code;
        links = Is_Virama(before) || (links && before == Joiner);
        reader.Advance();
    }
    return reader.at;
}

int Previous_Character(std::string_view text, int at) { return Last_Before(text, at, Next_Character); }

int Previous_Code(std::string_view text, int at) { return Last_Before(text, at, Next_Code); }

int Length_Within(std::string_view text, int most) {
    if (text.size() <= static_cast<std::size_t>(most)) return static_cast<int>(text.size());
    const int length = Previous_Character(text, most + 1);
    return length > 0 ? length : Previous_Code(text, most + 1);
}

Wide_Line::Wide_Line(std::string_view text) {
    const auto bytes = static_cast<int>(text.size());
    if (bytes > Room) longer.reset(new (std::nothrow) wchar_t[text.size()]);
    length = Text_To_Wide(text.data(), bytes, longer ? longer.get() : room, longer ? bytes : Room);
}

}  // namespace galdren
