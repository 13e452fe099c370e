/// @file
/// One control of every kind, as applications fill them in.
#pragma once

#include "Galdren_Host.h"
#include "tests/support/controls.h"

namespace galdren_test {

/// Controls beside each other in a client area of 600 x 440.
struct Every_Class {
    Every_Class() {
        static constexpr const char* Extras[] = {"Grid", "Axes", "Legend", "Stamp", nullptr};
        static constexpr unsigned char Enabled[] = {1, 1, 0, 1};
        Put(box, "Box", 0, 0, 60, 30, 0);
        Put(label, "Volume", 0, 40, 60, 30, 0);
        Put(button, "Apply", 0, 80, 60, 30, 0);
        Put(lamp, "Mute", 0, 120, 60, 30, BUTTON_LAMP);
        Put(lights, "Lights", 0, 160, 60, 30, BUTTON_LAMP | BUTTON_LAMP_COLORS);
        Put(tab, "Page", 0, 200, 60, 30, 0);
        checks.List = single.List = Extras, checks.Enabled = Enabled, checks.Value = 1, single.Value = 2;
        Put(checks, "Extras", 70, 0, 160, 70, 0);
        Put(single, nullptr, 70, 80, 160, 100, CHECKLIST_SINGLE | CHECKLIST_ONE_COLUMN);
        bar.Start_Val = 0, bar.End_Val = 100, bar.Val = 20, bar.Step = 5;
        Put(bar, nullptr, 240, 0, 200, 20, 0);
        gain.Start_Val = 0, gain.End_Val = 100, gain.Val = 20, gain.Step = 2;
        gain.Format = "%.0f dB", gain.Num_Width = 60;
        Put(gain, "Gain", 240, 30, 200, 30, 0);
        log.Start_Val = 1000, log.End_Val = 1, log.Val = 10;
        Put(log, nullptr, 240, 70, 200, 20, VALUATOR_LOG_10 | SLIDER_REVERSED);
        locked.Start_Val = 0, locked.End_Val = 1, locked.Val = 0.5F;
        Put(locked, "Fixed", 240, 100, 200, 20, VALUATOR_LOCKED);
        Name_Items(choice, {"PNG", "JPEG", "TIFF", "Targa"});
        choice.Item[0]->Flag |= FLAG_PASSIVE, choice.Item[3]->Flag |= FLAG_PASSIVE;
        choice.Current = 1;
        Put(choice, "Format", 240, 130, 200, 50, 0);
        Name_Items(list, {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"});
        list.Item[1]->Flag |= FLAG_PASSIVE;
        Put(list, "Names", 450, 0, 120, 150, FLAG_VERTICAL);
        Name_Items(row, {"left", "middle", "right"});
        row.Current = 2;
        Put(row, nullptr, 240, 190, 200, 40, 0);
        Name_Items(tabs, {"One", "Two", "Three"});
        Put(tabs, nullptr, 0, 240, 240, 30, 0);
        Put(hue, "Hue", 0, 280, 240, 40, 0);
        color.Value = 0xFF204080;
        Put(color, nullptr, 0, 330, 240, 100, COLOR_EDIT_MODE_BUTTON);
        hls.Value = color.Value;
        Put(hls, nullptr, 450, 160, 140, 100, COLOR_EDIT_HLS);
        Put(line, nullptr, 250, 240, 180, 30, TEXT_SINGLE_LINE | TEXT_INTEGER | TEXT_REPORT_CHANGES);
        Put(secret, nullptr, 250, 280, 180, 30, TEXT_SINGLE_LINE | TEXT_PASSWORD);
        Put(output, "Log", 250, 320, 180, 110, TEXT_V_BAR);
    }
    Every_Class(const Every_Class&) = delete;
    Every_Class& operator=(const Every_Class&) = delete;

    /// Calls `visit(key, control)` for each, in the order in which they are added.
    void Each(auto visit) {
        visit("box", box), visit("label", label), visit("button", button), visit("lamp", lamp);
        visit("lights", lights), visit("tab", tab), visit("checks", checks), visit("single", single);
        visit("bar", bar), visit("gain", gain), visit("log", log), visit("locked", locked);
        visit("choice", choice), visit("list", list), visit("row", row), visit("tabs", tabs);
        visit("hue", hue), visit("color", color), visit("hls", hls), visit("line", line);
        visit("secret", secret), visit("output", output);
    }
    /// Adds them to a host, initialises them and writes into the fields.
    void Show_In(Host& host) {
        Each([&](const char*, auto& control) { host.Add(control); });
        host.Init_All();
        line.Read("%d", 12), secret.Read("hush");
        for (int i = 0; i < 40; ++i)
            output.Write("%cline %d", TEXT_BLUE, i);
    }

    Boxs box;
    Labels label;
    Buttons button, lamp, lights;
    TabItems tab;
    CheckLists checks, single;
    Sliders bar;
    Valuators gain, log, locked;
    Selects choice;
    Lists list, row;
    Tabs tabs;
    Hue_Edit hue;
    Color_Edit color, hls;
    Texts line, secret, output;

  private:
    static void Put(Tools& control, const char* name, int x, int y, int width, int height,
                    unsigned long flag) {
        Place(control, name, x, y, width, height, flag), control.Border = 2;
    }
};

}  // namespace galdren_test
