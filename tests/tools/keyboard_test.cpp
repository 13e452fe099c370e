// Keyboard messages and the codes they give.
#include <algorithm>
#include <vector>

#include "tests/support/keys.h"
#include "tests/support/window.h"

namespace galdren_test {
namespace {

/// The keys `first` to `last` give `code` and what follows it, with those modifiers held that are in `added`;
/// nothing when `code` is 0. Of several rows for a key the last counts.
struct Row {
    int first, last, code, added;
    int only_with = 0;  // the row counts while these are held
};
using Rows = std::vector<Row>;

constexpr int S = 256, C = 512, A = 1024, All = S | C | A, Extended = 0x100;
constexpr int Swallows = 0x10000, W = All | Swallows;  // the next character gives nothing

const Rows down{{8, 9, 8, W},           {13, 13, 13, W},       {16, 17, 16, 0},        {33, 33, 4201, All},
                {34, 34, 4195, All},    {35, 35, 4193, All},   {36, 36, 4199, All},    {37, 37, 4196, All},
                {38, 38, 4200, All},    {39, 39, 4198, All},   {40, 40, 4194, All},    {45, 45, 4192, All},
                {46, 46, 4142, W},      {48, 57, 48, All},     {48, 57, 48, W, C},     {65, 90, 65, W, C},
                {96, 105, 0x2060, All}, {106, 107, 0x106A, W}, {112, 123, 0x870, All}, {109, 111, 0x106D, W},
                {145, 145, 0x891, All}};
const Rows extended_down{{13, 13, 4109, W},
                         {33, 40, 0x821, All},
                         {45, 46, 0x82D, All},
                         {106, 107, 0x106A, W},
                         {109, 111, 0x106D, W}};
const Rows up{{42, 42, 0x82A, All}, {44, 44, 0x82A, All}};
const Rows character{{1, 255, 1, C | A}, {27, 27, 0, 0}, {48, 57, 0, 0}};
const Rows system_down{{1, 255, 1, All},     {18, 18, 18, 0},     {33, 40, 0x821, All},
                       {45, 46, 0x82D, All}, {108, 108, 13, All}, {112, 123, 0x870, All}};
const Rows dialog{{1, 255, 1, C | A},  {27, 27, 0, 0},        {33, 40, 2081, 0},      {45, 46, 2093, 0},
                  {48, 57, 48, 0},     {48, 48, ')', 0, S},   {49, 49, '!', 0, S},    {50, 50, '@', 0, S},
                  {51, 53, '#', 0, S}, {54, 54, '^', 0, S},   {55, 55, '&', 0, S},    {56, 56, '*', 0, S},
                  {57, 57, '(', 0, S}, {65, 90, 97, C | A},   {65, 90, 65, C | A, S}, {97, 122, 65, C | A, S},
                  {96, 96, '0', 0},    {105, 105, '9', 0},    {187, 187, '=', 0},     {187, 187, '+', 0, S},
                  {189, 189, '-', 0},  {189, 189, '_', 0, S}, {220, 220, '\\', 0},    {220, 220, '|', 0, S}};

/// Scan words of the keypad with Alt held, and what they give.
constexpr int with_alt[][2] = {{8247, 5226}, {8263, 5223}, {8264, 5224}, {8265, 5225}, {8266, 5229},
                               {8267, 5220}, {8268, 5221}, {8269, 5222}, {8270, 5227}, {8271, 5217},
                               {8272, 5218}, {8273, 5219}, {8274, 5216}, {8275, 5230}, {8501, 5231}};

TEST(Keyboard, Every_Key_Gives_What_Its_Table_Says) {
    struct Message {
        decltype(&Parse_Keyboard) parse;
        UINT message;
        int scan_word;
        Rows rows;
        bool closes = false;
        int first = 1, last = 299;
    };
    std::vector<Message> messages{
        {Parse_Keyboard, WM_KEYDOWN, 1, down},
        {Parse_Keyboard, WM_KEYDOWN, Extended, extended_down},
        {Parse_Keyboard, WM_KEYDOWN, 76, {{12, 12, 0x1065, All}}, false, 12, 12},
        {Parse_Keyboard, WM_KEYDOWN, 76 | 0x4000, {}, false, 12, 12},
        {Parse_Keyboard, WM_KEYUP, 1, up},
        {Parse_Keyboard, WM_CHAR, 1, character, true},
        {Parse_Keyboard, WM_SYSKEYDOWN, 1, system_down},
        {Parse_Keyboard, WM_SYSKEYDOWN, Extended, {{13, 13, 4109, All}}, false, 13, 13},
        {Parse_Keyboard, WM_SYSKEYUP, 1, {}},
        {Parse_Dialog, WM_KEYDOWN, 1, dialog, true},
        {Parse_Dialog, WM_CHAR, 1, {}},
    };
    for (const auto& [scan_word, code] : with_alt)
        messages.push_back({Parse_Keyboard, WM_SYSKEYDOWN, scan_word, {{36, 36, code, 0}}, false, 36, 36});
    const Test_Window window(20, 20);
    MSG closing;
    for (const Message& m : messages) {
        for (const int held : {0, S, C, A, All}) {
            Hold_Keys(held);
            for (int key = m.first; key <= m.last; ++key) {
                SCOPED_TRACE(testing::Message()
                             << m.message << ':' << m.scan_word << ' ' << key << '+' << held);
                const auto applies = [&](const Row& row) {
                    return key >= row.first && key <= row.last && (held & row.only_with) == row.only_with;
                };
                const auto row = std::find_if(m.rows.rbegin(), m.rows.rend(), applies);
                const bool none = row == m.rows.rend() || row->code == 0;
                const int code = m.parse(window, m.message, static_cast<WPARAM>(key), m.scan_word << 16);
                ASSERT_EQ(code, none ? 0 : (row->code + key - row->first) | (held & row->added));
                ASSERT_EQ(!Parse_Keyboard(window, WM_CHAR, '~', 1), !none && row->added & Swallows);
                const bool closes = PeekMessageA(&closing, window, WM_CLOSE, WM_CLOSE, PM_REMOVE);
                ASSERT_EQ(closes, m.closes && key == 27);
            }
        }
    }
    Hold_Keys(0);
}

TEST(Keyboard, Swallows_No_Other_Key) {
    Parse_Keyboard(nullptr, WM_KEYDOWN, VK_DELETE, 1);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_KEYDOWN, 'A', 1), 0);
    EXPECT_EQ(Parse_Keyboard(nullptr, WM_CHAR, 'a', 1), 'a') << "Delete has no character that could be meant";
}

}  // namespace
}  // namespace galdren_test
