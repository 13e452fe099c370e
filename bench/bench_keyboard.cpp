// Key codes. What a message costs is what the system takes to tell of a modifier, which under Wine is a
// request to its server; messages that need none have a row of their own.

#include <span>

#include "Galdren_Tools.h"
#include "scene.h"

namespace {

using bench::Require;
using bench::Result;
using bench::Stage;

struct Key_Message {
    UINT message;
    WPARAM wparam;
    int code;
};

constexpr Key_Message Letter_Typed[] = {{WM_KEYDOWN, 'A', 0}, {WM_CHAR, 'a', 'a'}, {WM_KEYUP, 'A', 0}};
constexpr Key_Message Without_Modifiers[] = {{WM_CHAR, '7', 0},
                                             {WM_KEYDOWN, VK_SHIFT, VK_SHIFT},
                                             {WM_KEYDOWN, VK_F24, 0},
                                             {WM_KEYUP, 'A', 0},
                                             {WM_MOUSEMOVE, 0, 0}};

Result Parse(std::span<const Key_Message> messages) {
    constexpr int Rounds = 100;
    const Stage stage;
    bool right = true;
    const auto parse_all = [&] {
        for (int i = 0; i < Rounds; ++i) {
            for (const auto& [message, wparam, code] : messages)
                right &= Parse_Keyboard(stage.Get(), message, wparam, 1) == code;
        }
    };
    const bench::Summary time = bench::Time({parse_all, Rounds * static_cast<int>(messages.size())});
    Require(right, "a message gave another code");
    return {time, {}};
}

const bench::Register rows[] = {
    bench::Register({"keyboard: message without modifiers", "us", bench::At_Most(2),
                     [] { return Parse(Without_Modifiers); }}),
    bench::Register({"keyboard: message of a letter typed", "us", bench::No_Target(),
                     [] { return Parse(Letter_Typed); }}),
};

}  // namespace
