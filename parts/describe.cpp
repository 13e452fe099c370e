#include "parts/describe.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace galdren {

namespace {

std::string_view Without_Blanks(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

}  // namespace

std::string Caption(const char* text) {
    constexpr std::size_t Longest = 255;
    return text ? std::string(text, strnlen(text, Longest)) : std::string();
}

void Put(Part& part, const Tools& control, const RECT& area) {
    part.area = Has_Place(control) ? Common(area, control.Rect) : RECT{};
    part.state &= ~unsigned{PART_OUT_OF_VIEW};
    if (!Is_Empty(part.area)) return;
    part.area = {};
    part.state |= PART_OUT_OF_VIEW;
}

Part Whole_Of(const Tools& control, Part_Role role, Part_Use use) {
    Part part;
    part.role = role;
    part.use = use;
    part.name = Caption(control.Name);
    Note(part, PART_PASSIVE, Has_Bit(control, FLAG_PASSIVE));
    Put(part, control, control.Rect);
    return part;
}

Part Button_Of(const Tools& control, const Tools& button, Part_Role role, Part_Use use) {
    Part part = Whole_Of(button, role, use);
    Note(part, PART_PASSIVE, Has_Bit(control, FLAG_PASSIVE));
    Put(part, control, part.area);
    return part;
}

void Set_Range(Part& part, double end, double other_end, double number) {
    part.has_range = true;
    part.least = std::min(end, other_end);
    part.most = std::max(end, other_end);
    part.number = number;
}

std::optional<int> Steps_Of(Part_Move move) {
    constexpr int Page = 10;
    switch (move) {
        case Part_Move::Right:
        case Part_Move::Up:
            return 1;
        case Part_Move::Left:
        case Part_Move::Down:
            return -1;
        case Part_Move::Page_Up:
            return Page;
        case Part_Move::Page_Down:
            return -Page;
        default:
            return std::nullopt;
    }
}

std::optional<Number_Text> Parse_Number(const char* text) {
    const std::string_view all = Without_Blanks(text ? text : "");
    if (all.empty() || !std::strchr("-.0123456789", all.front())) return std::nullopt;
    char* end = nullptr;
    const double number = std::strtod(all.data(), &end);
    const auto length = static_cast<std::size_t>(end - all.data());
    // Only decimal numbers, though the function takes others too.
    const bool is_plain = all.substr(0, length).find_first_of("xXnN") == std::string_view::npos;
    if (length == 0 || length > all.size() || !is_plain || !std::isfinite(number)) return std::nullopt;
    const std::string_view rest = all.substr(length);
    return Number_Text{number, std::string(Without_Blanks(rest))};
}

std::optional<bool> Parse_Switch(const char* text) {
    const std::string_view word = text ? text : "";
    if (word == "1") return true;
    if (word == "0") return false;
    return std::nullopt;
}

int Find_Item(Buttons* const* items, int count, const char* name) {
    for (int i = 0; name && i < count; ++i) {
        const Buttons& item = *items[i];
        if (item.Name && std::strcmp(item.Name, name) == 0 && !Has_Bit(item, FLAG_PASSIVE)) return i;
    }
    return Whole;
}

}  // namespace galdren
