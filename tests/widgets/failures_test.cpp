// Every function of the system that the libraries call, made to fail in a tour of all controls.
#include <algorithm>
#include <cstring>
#include <string>

#include "Galdren_Tools.h"
#include "Galdren_Util.h"
#include "tests/support/controls.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

template <class Control>
void Use(const Test_Window& window, int number) {
    const int x = number % 4 * 120 + 2, y = number / 4 * 100 + 2;
    Control control;
    Place(control, "Name", x, y, 110, 90);
    Furnish(control, 7);
    control.Set_Name("%s", "Name"), control.Alloc_Graph_Normal(0x808080);
    if constexpr (requires { control.Item_Height; }) control.Flag = FLAG_VERTICAL;
    window.Point_At(x + 20, y + 20);
    control.Init(window);
    if constexpr (requires { control.Set("c:\\"); }) control.Set("c:\\users");
    control.Draw();
    Control copy(control);
    if constexpr (requires { control.Select(0); }) control.Select(EVENT_PRESS | EVENT_LEFT);
    if constexpr (requires { control.Adjust(); }) control.Adjust();
    if constexpr (requires { control.Scroll(1); }) control.Scroll(1);
    if constexpr (requires { control.Deselect(); }) control.Deselect();
    if constexpr (requires { control.Input('x'); }) {
        control.Write("one\ntwo"), control.Read("%s", "typed");
        for (const int key : {int{'x'}, KEY_CONTROL | 'V', 13})
            control.Input(key);
        control.Update();
    }
    copy.Width = 80, copy.Font_Size = 12;
    copy.Init(window), copy.Draw();
    control = copy;
}

/// Uses every class on a window, in a batch, a pair and on a held window, and lets go of everything.
Picture Tour(Test_Window& window) {
    window.Refill();
    int number = 0;
    For_Each_Class([&]<class Control>(const char*) { Use<Control>(window, number++); });
    Picture shown(window);
    Begin_Hold(window), Begin_Batch(window), Begin_Draw(window, nullptr);
    Clip_Rect(5, 5, 100, 100);
    Use<Buttons>(window, 0);
    End_Draw(), End_Batch(), End_Hold(window);
    Tools_Lib_Cleanup();
    return shown;
}

/// What cannot fail, or has to do its work for anything to be checked afterwards: what the runtimes of the
/// compiler and of C live on, and what only gives back.
bool Cannot_Fail(const std::string& function) {
    static constexpr const char* names[] = {
        "mem",          "str",      "wcs",     "Rtl",      "_lock",      "_unlock",    "_errno",
        "localeconv",   "___lc",    "___mb",   "_ult",     "ato",        "Enter",      "Leave",
        "GetTick",      "Tls",      "GetLast", "SetLast",  "GetCurrent", "free",       "VirtualFree",
        "VirtualQuery", "Delete",   "Release", "Close",    "FindClose",  "GlobalFree", "GlobalUnlock",
        "fclose",       "EndPaint", "log10",   "HeapFree", "RestoreDC",  "Acquire",    "InitOnce",
        "Initialize",   "_iob",     "__iob"};
    return std::ranges::any_of(names, [&](const char* name) { return function.starts_with(name); });
}

/// Lets a function fail at its first call and at some later ones, a tour for each.
void Fail(const char* library, const std::string& function, long long count, Test_Window& window) {
    for (long long passed = 0; passed < count; passed = 2 * passed + 1) {
        Call_Spy spy(library, true);
        for (const char* one : {"FindFirstFileW", "GetFileAttributesW", "_filelengthi64"})
            if (function == one) spy.Set_Answer(one, -1);
        spy.Fail(function.c_str(), static_cast<int>(passed));
        Tour(window);
        ASSERT_TRUE(!Z_DC && !Z_Window && !Critical.OwningThread) << "left open after call " << passed;
    }
}

void Fail_Each(const char* library) {
    Test_Window window(490, 410);
    Tour(window);
    const Picture wanted = Tour(window);
    std::map<std::string, long long> calls;
    {
        const Call_Spy spy(library, true);
        Tour(window);
        calls = spy.Called();
    }
    for (const auto& [function, count] : calls) {
        if (Cannot_Fail(function)) continue;
        SCOPED_TRACE(library + (": " + function) + ", called " + std::to_string(count) + " times");
        // Some things are made once, and so is what a test of another function has left.
        int more_blocks = 1, more_objects = 1;
        for (int times = 0; times < 3 && (more_blocks > 0 || more_objects > 0); ++times) {
            const int blocks = Live_Blocks(), objects = Gdi_Objects();
            Fail(library, function, count, window);
            more_blocks = Live_Blocks() - blocks, more_objects = Gdi_Objects() - objects;
        }
        EXPECT_LE(more_blocks, 0);
        EXPECT_LE(more_objects, 0);
        EXPECT_TRUE(Same(Tour(window), wanted)) << "afterwards";
    }
}

}  // namespace

TEST(Failures, Of_Any_Function_Are_Tolerated) {
    const Report_Catcher reports;
    for (const char* library : {"Galdren_Tools.dll", "Galdren_Util.dll"})
        Fail_Each(library);
}
