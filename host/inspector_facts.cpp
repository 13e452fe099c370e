#include "host/inspector_facts.h"

#include <array>
#include <cstdio>
#include <iterator>
#include <utility>

#include "host/class_calls.h"
#include "parts/by_name.h"

namespace galdren {

namespace {

using Bit_Name = std::pair<unsigned long, const char*>;

constexpr Bit_Name Flag_Names[] = {
    {FLAG_NO_BODY, "no body"},         {FLAG_PASSIVE, "passive"},       {FLAG_VERTICAL, "vertical"},
    {FLAG_STATIC, "static"},           {FLAG_OUTLINE, "outline"},       {FLAG_OWN_IMAGES, "own images"},
    {FLAG_TEXT_MIDDLE, "text middle"}, {FLAG_TEXT_TOP, "text top"},     {FLAG_TEXT_BOTTOM, "text bottom"},
    {FLAG_TEXT_LEFT, "text left"},     {FLAG_TEXT_RIGHT, "text right"}, {FLAG_INNER_FRAME, "inner frame"},
    {FLAG_TEXT_WHITE, "text white"},   {FLAG_RAISED, "raised"},         {FLAG_NO_RIM, "no rim"},
};

constexpr Bit_Name State_Names[] = {
    {PART_PASSIVE, "passive"},         {PART_CHECKED, "checked"},
    {PART_PRESSED, "pressed"},         {PART_CHOSEN, "chosen"},
    {PART_OUT_OF_VIEW, "out of view"}, {PART_READ_ONLY, "read only"},
    {PART_PROTECTED, "protected"},     {PART_OPEN, "open"},
    {PART_CLOSED, "closed"},
};

void Append(std::string& list, const std::string& word) {
    if (!list.empty()) list += ", ";
    list += word;
}

template <std::size_t Count>
std::string Names_Of(const Bit_Name (&names)[Count], unsigned long bits) {
    std::string text;
    for (const auto& [bit, name] : names) {
        if (bits & bit) Append(text, name);
    }
    return text;
}

const char* Name_Of(Part_Role role) {
    constexpr const char* Names[] = {"pane",       "text",    "button",    "check box", "radio button",
                                     "scroll bar", "slider",  "selector",  "field",     "console",
                                     "group",      "list",    "list item", "tab set",   "tab",
                                     "tree",       "tree row"};
    static_assert(std::size(Names) == static_cast<std::size_t>(Part_Role::Tree_Row) + 1);
    return Names[static_cast<std::size_t>(role)];
}

std::string Text_Of(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", value);
    return text;
}

std::string Hexadecimal(unsigned long value) {
    char text[32];
    std::snprintf(text, sizeof text, "0x%lX", value);
    return text;
}

std::string Text_Of(const RECT& area) {
    return "x " + std::to_string(area.left) + ", y " + std::to_string(area.top) + ", " +
           std::to_string(area.right - area.left) + " x " + std::to_string(area.bottom - area.top);
}

/// The fields with the value of a control, by their own names.
template <class Control>
std::string Fields_Of(const Control& control) {
    if constexpr (requires { control.Start_Val; }) {
        return "Val " + Text_Of(control.Val) + ", Start_Val " + Text_Of(control.Start_Val) + ", End_Val " +
               Text_Of(control.End_Val);
    } else if constexpr (requires { std::to_string(control.Current); }) {
        return "Current " + std::to_string(control.Current);
    } else if constexpr (requires { std::to_string(control.Value); }) {
        return "Value " + std::to_string(control.Value);
    } else {
        return {};
    }
}

/// The same for a control of which only the description is known, which each class has for itself.
template <class... Classes>
std::string Fields_Of(Class_List<Classes...>, const Part_Owner& owner) {
    std::string text;
    const auto note = [&]<class Control>(const Control* none) {
        if (&Parts_Of(none) == owner.parts) text = Fields_Of(static_cast<const Control&>(*owner.control));
    };
    (note(static_cast<const Classes*>(nullptr)), ...);
    return text;
}

std::string Number_Of(const Part_Owner& owner, Part_Place place) {
    std::string control = "control " + std::to_string(place.control);
    if (place.part == Whole) return control;
    return control + ", part " + std::to_string(place.part) + " of " +
           std::to_string(owner.parts->Count(*owner.control));
}

std::string State_Of(const Part_Owner& owner, const Part& part) {
    std::string text = Names_Of(State_Names, part.state);
    if (!owner.shown) Append(text, "hidden");
    if (!owner.enabled) Append(text, "disabled");
    return text;
}

std::string Font_Of(const Tools& control) {
    if (!control.Font_Name) return "of the system";
    std::string text = control.Font_Name + (' ' + std::to_string(control.Font_Size));
    for (const char* word : {control.Font_Weight, control.Font_Style}) {
        if (word) text += std::string(" ") + word;
    }
    return text;
}

std::string Text_Of(const Colors& color) {
    return std::to_string(color.Red) + ", " + std::to_string(color.Green) + ", " + std::to_string(color.Blue);
}

std::string Number_Of_GDI_Objects() {
    SetLastError(ERROR_SUCCESS);
    const DWORD number = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    return number == 0 && GetLastError() != ERROR_SUCCESS ? "not told" : std::to_string(number);
}

}  // namespace

std::vector<Fact> Facts_Of_Part(const Part_Window& window, Part_Place place) {
    constexpr std::array Titles = {"Class", "Name",   "Role",  "Number", "Rectangle", "Flag",
                                   "Bits",  "Fields", "Shows", "State",  "Font",      "Color"};
    std::array<std::string, Titles.size()> texts;
    if (place.control >= 0) {
        const Part_Owner owner = window.Owner(place.control);
        const Tools& control = *owner.control;
        const Part part = owner.parts->Describe(control, place.part);
        const bool is_secret = (part.state & PART_PROTECTED) != 0;
        texts = {owner.parts->Name(),
                 Name_Of_Part(window, place),
                 Name_Of(part.role),
                 Number_Of(owner, place),
                 Text_Of(part.area),
                 Hexadecimal(control.Flag),
                 Names_Of(Flag_Names, control.Flag),
                 Fields_Of(Library_Classes{}, owner),
                 is_secret ? std::string() : part.value,
                 State_Of(owner, part),
                 Font_Of(control),
                 Text_Of(control.Color)};
    }
    std::vector<Fact> facts;
    for (std::size_t i = 0; i < Titles.size(); ++i)
        facts.push_back({Titles[i], std::move(texts[i])});
    return facts;
}

std::vector<Fact> Facts_Of_Event(const char* event, const Paint_Count& cost) {
    return {{"Last event", event ? event : "none yet"},
            {"Paints", std::to_string(cost.paints)},
            {"Copies", std::to_string(cost.copies)},
            {"Bytes", std::to_string(cost.bytes)},
            {"GDI objects", Number_Of_GDI_Objects()}};
}

}  // namespace galdren
