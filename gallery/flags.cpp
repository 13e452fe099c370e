#include "gallery/flags.h"

#include "Galdren_Util.h"
#include "gallery/artwork.h"
#include "gallery/stage.h"

namespace gallery {

namespace {

constexpr const char* numbers[] = {"One", "Two", "Three", "Four", nullptr};
const Names four = Names(numbers).first(4);
const Names three = four.first(3);

void Take_Boxes(Stage& stage) {
    const auto keep_clear = [](Boxs& box) { box.Border = BORDER; };
    stage.Take<Boxs>("box", {84, 44}, nullptr,
                     {{"plain", 0},
                      {"raised", FLAG_RAISED},
                      {"no-rim", FLAG_NO_RIM},
                      {"inner-frame", FLAG_INNER_FRAME},
                      {"outline", FLAG_OUTLINE},
                      {"outline-no-body", FLAG_OUTLINE | FLAG_NO_BODY},
                      {"no-body", FLAG_NO_BODY},
                      {"passive", FLAG_PASSIVE},
                      {"static", FLAG_STATIC},
                      {"own-images", FLAG_OWN_IMAGES, [](Boxs& box) { Paint_Day(box), Paint_Dusk(box); }},
                      {"text-left", FLAG_TEXT_LEFT},
                      {"text-right", FLAG_TEXT_RIGHT},
                      {"text-top", FLAG_TEXT_TOP, keep_clear},
                      {"text-middle", FLAG_TEXT_MIDDLE},
                      {"text-bottom", FLAG_TEXT_BOTTOM, keep_clear},
                      {"vertical", FLAG_VERTICAL, [](Boxs& box) { box.Name = "Down"; }, nullptr, {44, 84}},
                      {"text-white", FLAG_TEXT_WHITE}});
}

/// Labels do not change under the pointer.
void Take_Labels(Stage& stage) {
    const auto upright = [](Labels& label) { label.Name = "Down"; };
    constexpr SIZE size{84, 44};
    constexpr SIZE upright_size{44, 84};
    stage.Take<Labels>("label", size, nullptr,
                       {{"plain", 0},
                        {"text-left", FLAG_TEXT_LEFT},
                        {"text-right", FLAG_TEXT_RIGHT},
                        {"text-top", FLAG_TEXT_TOP},
                        {"text-middle", FLAG_TEXT_MIDDLE},
                        {"text-bottom", FLAG_TEXT_BOTTOM}});
    stage.Take<Labels>("label-vertical", upright_size, upright,
                       {{"plain", FLAG_VERTICAL},
                        {"text-left", FLAG_VERTICAL | FLAG_TEXT_LEFT},
                        {"text-right", FLAG_VERTICAL | FLAG_TEXT_RIGHT},
                        {"text-top", FLAG_VERTICAL | FLAG_TEXT_TOP},
                        {"text-middle", FLAG_VERTICAL | FLAG_TEXT_MIDDLE},
                        {"text-bottom", FLAG_VERTICAL | FLAG_TEXT_BOTTOM}});
}

void Take_Buttons(Stage& stage) {
    stage.Take<Buttons>(
        "button", {84, 30}, nullptr,
        {{"plain", 0},
         {"lamp", BUTTON_LAMP, [](Buttons& button) { button.Lamp = 1; }},
         {"lamp-colors", BUTTON_LAMP | BUTTON_LAMP_COLORS, [](Buttons& button) { button.Lamp = 4; }},
         {"no-rim", FLAG_NO_RIM},
         {"outline", FLAG_OUTLINE},
         {"no-body", FLAG_NO_BODY},
         {"passive", FLAG_PASSIVE},
         {"static", FLAG_STATIC},
         {"own-images", FLAG_OWN_IMAGES, [](Buttons& button) { Paint_Day(button), Paint_Dusk(button); }},
         {"text-left", FLAG_TEXT_LEFT}});
}

void Take_Check_Lists(Stage& stage) {
    const auto dress = [](CheckLists& list) {
        list.List = numbers;
        list.Border = BORDER;
        list.Value = 0b0110;
    };
    stage.Take<CheckLists>("check-list", {124, 66}, dress,
                           {{"plain", 0},
                            {"single", CHECKLIST_SINGLE, [](CheckLists& list) { list.Value = 1; }},
                            {"one-column", CHECKLIST_ONE_COLUMN, nullptr, nullptr, {124, 88}},
                            {"no-title-row", CHECKLIST_NO_TITLE_ROW},
                            {"name-left", CHECKLIST_NAME_LEFT, nullptr, nullptr, {150, 66}},
                            {"outline", FLAG_OUTLINE},
                            {"no-body", FLAG_NO_BODY},
                            {"passive", FLAG_PASSIVE},
                            {"static", FLAG_STATIC}});
}

void Take_Sliders(Stage& stage) {
    const auto dress = [](Sliders& slider) {
        slider.End_Val = 10;
        slider.Val = 3;
    };
    const auto reverse = [](Sliders& slider) {
        slider.Start_Val = 10;
        slider.End_Val = 0;
    };
    const auto lift = [](Sliders& slider) {
        slider.Y = static_cast<short>(slider.Y + 26);
        slider.Height = 18;
    };
    const auto drag_away = [](Stage& on, Sliders& slider) {
        const auto middle = static_cast<short>(slider.X + slider.Width / 2);
        on.Drag({middle, 20}, {middle + 30, 36});
    };
    stage.Take<Sliders>("slider", {110, 18}, dress,
                        {{"plain", 0},
                         {"vertical", FLAG_VERTICAL, nullptr, nullptr, {18, 90}},
                         {"reversed", SLIDER_REVERSED, reverse},
                         {"keep-grab", SLIDER_KEEP_GRAB, lift, drag_away, {110, 44}},
                         {"outline-no-body", FLAG_OUTLINE | FLAG_NO_BODY},
                         {"no-body", FLAG_NO_BODY},
                         {"passive", FLAG_PASSIVE},
                         {"static", FLAG_STATIC}});
}

void Take_Valuators(Stage& stage) {
    const auto dress = [](Valuators& valuator) {
        valuator.Start_Val = 1;
        valuator.End_Val = 100;
        valuator.Val = 10;
        valuator.Format = "%.0f";
        valuator.Num_Width = 32;
    };
    stage.Take<Valuators>("valuator", {124, 28}, dress,
                          {{"plain", 0},
                           {"log-10", VALUATOR_LOG_10},
                           {"log-e", VALUATOR_LOG_E},
                           {"locked", VALUATOR_LOCKED},
                           {"text-left", FLAG_TEXT_LEFT},
                           {"vertical", FLAG_VERTICAL, nullptr, nullptr, {28, 110}},
                           {"outline", FLAG_OUTLINE},
                           {"no-body", FLAG_NO_BODY},
                           {"passive", FLAG_PASSIVE},
                           {"static", FLAG_STATIC}});
}

void Take_Lists(Stage& stage) {
    const auto dress = [](Lists& list) {
        Name_Items(list, four);
        list.Name = nullptr;
        list.Item_Height = 20;
    };
    stage.Take<Lists>("list", {90, 96}, dress,
                      {{"plain", 0, nullptr, nullptr, {236, 30}},
                       {"vertical", FLAG_VERTICAL},
                       {"inner-frame", FLAG_VERTICAL | FLAG_INNER_FRAME},
                       {"static", FLAG_VERTICAL | FLAG_STATIC},
                       {"outline", FLAG_VERTICAL | FLAG_OUTLINE},
                       {"outline-no-body", FLAG_VERTICAL | FLAG_OUTLINE | FLAG_NO_BODY},
                       {"passive", FLAG_VERTICAL | FLAG_PASSIVE},
                       {"no-body", FLAG_VERTICAL | FLAG_NO_BODY}});
}

void Take_Selectors(Stage& stage) {
    const auto dress = [](Selects& selector) {
        Name_Items(selector, three);
        selector.Border = BORDER;
    };
    const auto narrow = [](Selects& selector) { selector.Value_Width = 116; };
    constexpr unsigned long left = FLAG_TEXT_LEFT | FLAG_TEXT_MIDDLE;
    stage.Take<Selects>(
        "selector", {180, 28}, dress,
        {{"plain", 0, nullptr, nullptr, {150, 42}},
         {"vertical", FLAG_VERTICAL, [](Selects& selector) { selector.Name = "Step"; }, nullptr, {44, 150}},
         {"text-left", FLAG_TEXT_LEFT},
         {"text-right", FLAG_TEXT_RIGHT, narrow},
         {"text-middle", left},
         {"text-bottom", FLAG_TEXT_LEFT | FLAG_TEXT_BOTTOM},
         {"no-frame", left | SELECTOR_NO_FRAME},
         {"static", left | FLAG_STATIC},
         {"outline", left | FLAG_OUTLINE},
         {"no-body", left | FLAG_NO_BODY},
         {"passive", left | FLAG_PASSIVE}});
}

void Take_Tabs(Stage& stage) {
    constexpr SIZE size{150, 24};
    const auto dress = [](Tabs& set) { Name_Items(set, three); };
    stage.Take<Tabs>(
        "tabs", size, dress,
        {{"plain", 0}, {"passive", FLAG_PASSIVE}, {"static", FLAG_STATIC}, {"outline", FLAG_OUTLINE}});
    const auto straight_left = [](TabItems& tab) { tab.Shape = TAB_LEFT_STRAIGHT; };
    const auto straight_right = [](TabItems& tab) { tab.Shape = TAB_RIGHT_STRAIGHT; };
    const auto slant = [](TabItems& tab) { tab.Slant = 8; };
    stage.Take<TabItems>("tab", {80, 24}, slant,
                         {{"pointed", 0},
                          {"left-straight", 0, straight_left},
                          {"right-straight", 0, straight_right},
                          {"outline", FLAG_OUTLINE},
                          {"passive", FLAG_PASSIVE},
                          {"static", FLAG_STATIC},
                          {"no-body", FLAG_NO_BODY}});
}

void Type(Stage&, Texts& field) {
    field.Show_Caret(CARET_SHOWN);  // as with the keyboard focus, which the window does not have
    for (const char* key = "-1a2.5e+g"; *key; ++key)
        field.Input(*key);
}

void Take_Texts(Stage& stage) {
    const auto fill = [](Texts& field) {
        field.Init(hwnd);
        for (int line = 1; line <= 8; ++line)
            field.Write("line %d of eight, a long one", line);
    };
    const auto read = [](Texts& field) {
        field.Init(hwnd);
        field.Read("%s", "");
    };
    constexpr unsigned long entry = TEXT_SINGLE_LINE;
    stage.Take<Texts>("text", {130, 92}, fill,
                      {{"plain", 0},
                       {"v-bar", TEXT_V_BAR},
                       {"h-bar", TEXT_H_BAR},
                       {"input-room", TEXT_INPUT_ROOM},
                       {"passive", FLAG_PASSIVE},
                       {"outline", FLAG_OUTLINE},
                       {"no-body", FLAG_NO_BODY},
                       {"static", FLAG_STATIC}});
    stage.Take<Texts>("text", {130, 24}, read,
                      {{"single-line", entry, nullptr, Type},
                       {"integer", entry | TEXT_INTEGER, nullptr, Type},
                       {"float", entry | TEXT_FLOAT, nullptr, Type},
                       {"hexadecimal", entry | TEXT_HEXADECIMAL, nullptr, Type},
                       {"password", entry | TEXT_PASSWORD, nullptr, Type}});
}

void Take_Editors(Stage& stage) {
    const auto dress = [](auto& editor) {
        editor.Value = 0xFFB47832;
        editor.Border = 2;
    };
    stage.Take<Hue_Edit>("hue", {170, 34}, dress,
                         {{"plain", 0},
                          {"text-left", FLAG_TEXT_LEFT},
                          {"passive", FLAG_PASSIVE},
                          {"no-body", FLAG_NO_BODY},
                          {"static", FLAG_STATIC},
                          {"outline", FLAG_OUTLINE}});
    stage.Take<Color_Edit>("color", {170, 130}, dress,
                           {{"plain", 0},
                            {"hls", COLOR_EDIT_HLS},
                            {"mode-button", COLOR_EDIT_MODE_BUTTON},
                            {"text-left", FLAG_TEXT_LEFT},
                            {"passive", FLAG_PASSIVE},
                            {"no-body", FLAG_NO_BODY},
                            {"outline-no-body", FLAG_NO_BODY | FLAG_OUTLINE},
                            {"outline", FLAG_OUTLINE},
                            {"static", FLAG_STATIC}});
}

}  // namespace

void Write_Flags(const std::string& directory) {
    Stage stage(directory);
    Take_Boxes(stage);
    Take_Labels(stage);
    Take_Buttons(stage);
    Take_Check_Lists(stage);
    Take_Sliders(stage);
    Take_Valuators(stage);
    Take_Lists(stage);
    Take_Selectors(stage);
    Take_Tabs(stage);
    Take_Texts(stage);
    Take_Editors(stage);
}

}  // namespace gallery
