// Captions in UTF-8, beside the same letters in a code page of one byte a character.

#include <vector>

#include "scene.h"

namespace {

using bench::Compare;
using bench::Of_Native;
using bench::Require;
using bench::Result;
using bench::Stage;
using bench::Work;

constexpr int Count = 100;
constexpr int Times = 50;  ///< that all are painted in one batch, or its copy would be all that counts

/// Labels with one caption, in a code page.
class Captions {
  public:
    Captions(HWND window, unsigned text_page, const char* caption) : page(text_page), labels(Count) {
        Set_Text_Code_Page(page);
        for (int i = 0; i < Count; ++i) {
            Labels& label = labels[static_cast<std::size_t>(i)];
            label.X = static_cast<short>(10 + 110 * (i % 5)), label.Y = static_cast<short>(10 + 22 * (i / 5));
            label.Width = 100, label.Height = 20;
            label.Font_Name = "Arial", label.Font_Size = 9;
            label.Name = caption;
            label.Init(window);
        }
    }
    /// The first paint in another page asks for the font anew.
    void Prepare() {
        Set_Text_Code_Page(page);
        labels.front().Draw();
    }
    void Draw() {
        Begin_Batch(labels.front().Window);
        for (int i = 0; i < Times; ++i) {
            for (Labels& label : labels)
                label.Draw();
        }
        End_Batch();
    }

  private:
    unsigned page;
    std::vector<Labels> labels;
};

/// Pixels of the first caption.
int Painted(const Stage& stage, Captions& captions) {
    stage.Repaint();
    captions.Prepare();
    captions.Draw();
    int count = 0;
    for (int x = 10; x < 110; ++x) {
        for (int y = Stage::Height - 40; y < Stage::Height; ++y)
            count += stage.Pixel(x, y) != Stage::Background;
    }
    return count;
}

Result In_UTF8() {
    constexpr unsigned Western = 1252;
    const Stage stage;
    Captions coded(stage.Get(), CP_UTF8,
                   "Gr\xC3\xB6\xC3\x9F"
                   "e \xC3\xA4\xC3\xB6\xC3\xBC");
    Captions plain(stage.Get(), Western,
                   "Gr\xF6\xDF"
                   "e \xE4\xF6\xFC");
    const int pixels = Painted(stage, coded);
    Require(pixels > 0 && pixels == Painted(stage, plain), "the captions are not the same");
    const Result result = Compare(Work{[&] { coded.Draw(); }, Count * Times, [&] { coded.Prepare(); }},
                                  Work{[&] { plain.Draw(); }, Count * Times, [&] { plain.Prepare(); }});
    Set_Text_Code_Page(0);
    return result;
}

const bench::Register rows[] = {
    bench::Register({"caption: in UTF-8 beside page 1252", "us", Of_Native(1.2), In_UTF8}),
};

}  // namespace
