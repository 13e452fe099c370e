#include "parts/part.h"

#include <algorithm>

int Class_Parts::Count(const Tools&) const { return 0; }

int Class_Parts::At(const Tools& control, POINT place) const {
    // Later parts are painted over those before.
    for (int part = Count(control) - 1; part >= 0; --part) {
        const RECT area = Describe(control, part).area;
        if (PtInRect(&area, place)) return part;
    }
    return Whole;
}

int Class_Parts::First(const Tools& control) const { return Count(control) > 0 ? 0 : Whole; }

int Class_Parts::Next(const Tools& control, int part, Part_Move move) const {
    const int last = Count(control) - 1;
    if (last < 0) return Whole;
    if (part < 0 || part > last) part = Whole;
    const int page = std::min(Page(control), last + 1);
    switch (move) {
        case Part_Move::Left:
        case Part_Move::Up:
            return std::max(part - 1, 0);
        case Part_Move::Right:
        case Part_Move::Down:
            return std::min(part + 1, last);
        case Part_Move::Page_Up:
            return std::max(part - page, 0);
        case Part_Move::Page_Down:
            return std::min(part + page, last);
        case Part_Move::Home:
            return 0;
        case Part_Move::End:
            return last;
    }
    return part;
}

void Class_Parts::Bring_Into_View(Tools&, int) const {}

int Class_Parts::Page(const Tools&) const { return 10; }

bool Class_Parts::Step(Tools&, int, Part_Move) const { return false; }

bool Class_Parts::Set_Value(Tools&, int, const char*) const { return false; }

bool Class_Parts::Store(Tools&, int) const { return false; }

void Class_Parts::Show_Caret(Tools&, Text_Caret) const {}

void Class_Parts::For_Members(Tools&, const std::function<void(Tools&)>&) const {}
