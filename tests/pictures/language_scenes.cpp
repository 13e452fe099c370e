// Captions in many languages, which the system shapes, and in code pages where letters take two bytes.
#include "tests/pictures/looks.h"
#include "tests/support/code_page.h"
#include "tests/support/fonts.h"
#include "tests/support/languages.h"
#include "util/wide.h"

using namespace galdren_test;

namespace {

/// A text as the library gets it.
struct Written {
    unsigned page;
    const char* face;
    std::string text;
};

std::vector<Written> Texts_Of_Languages() {
    std::vector<Written> texts{{1251, "Arial", "\xCC\xEE\xF1\xEA\xE2\xE0"},
                               {1255, "DejaVu Sans", "\xF9\xC8\xD1\xEC 12"},
                               {932, "Droid Sans Fallback", "\x83\x41\x95\x5C \xB1"},
                               {65001, "Arial", "A\xE2\x82\xFFZ,\tbroken"}};
    const Other_Page page(CP_UTF8);
    for (const auto& [text, face] : Languages)
        texts.push_back({CP_UTF8, face, galdren::From_Wide(text)});
    return texts;
}

Scene Caption(const Written& written, const std::string& text, unsigned long flag) {
    return [=](const Cell& cell) {
        const Other_Page page(written.page);
        Labels label;
        cell.Place(label);
        label.Name = text.c_str(), label.Font_Name = written.face, label.Font_Size = 12, label.Flag = flag;
        label.Init(cell.window), label.Draw();
    };
}

/// A text written by hand, with a box below that is as large as the text is said to be.
Scene Measured(const Written& written) {
    return [=](const Cell& cell) {
        const Other_Page page(written.page);
        const HFONT font = Z_Create_Font(cell.window, written.face, nullptr, nullptr, 12);
        Begin_Draw(cell.window, nullptr);
        const int x = cell.x + 4, y = cell.y + 8, width = Text_Width(font, written.text.c_str());
        Text_Tabbed(font, x, y + 50, written.text.c_str());
        Current_Color = 0xC06020;
        Draw_Box(x, y + Text_Height(font), x + width, y);
        End_Draw();
        Z_Delete_Font(cell.window, font);
    };
}

}  // namespace

TEST(Pictures, Languages) {
    const Fonts_Of_Languages fonts;
    ASSERT_TRUE(fonts.Are_Here());
    Sheet sheet("languages", 150, 92);
    int number = 0;
    for (const Written& written : Texts_Of_Languages()) {
        const std::string name = "text " + std::to_string(number++), &text = written.text;
        sheet.Add(name, Caption(written, text, FLAG_TEXT_LEFT));
        sheet.Add(name + " with a tab", Caption(written, text + '\t' + text, FLAG_TEXT_LEFT));
        sheet.Add(name + " upright", Caption(written, text, FLAG_VERTICAL | FLAG_TEXT_TOP));
        sheet.Add(name + " too long", Caption(written, Repeated(text, 60), 0));
        sheet.Add(name + " measured", Measured(written));
    }
    sheet.Expect_Recorded();
}
