#include "host/entries.h"

#include <algorithm>
#include <utility>

#include "host/client.h"

namespace galdren {

RECT Painted_Area(const Entry& entry) {
    RECT area = entry.control->Rect;
    InflateRect(&area, entry.calls->overhang, entry.calls->overhang);
    return area;
}

void Entries::Add(Tools& control, const Class_Calls& calls, std::shared_ptr<const Handlers> handlers) {
    all.push_back({&control, &calls, std::move(handlers), nullptr, ++last_serial});
}

bool Entries::Remove(const Tools& control) {
    const auto is_wanted = [&](const Entry& entry) { return entry.control == &control; };
    if (std::erase_if(all, is_wanted) == 0) return false;
    Forget();
    return true;
}

void Entries::Clear() {
    all.clear();
    Forget();
}

/// Has all that is known of the entries worked out anew.
void Entries::Forget() {
    numbers.clear();
    numbered = 0;
    noted.clear();
}

Entry* Entries::Find(const Tools* control) {
    for (; numbered < all.size(); ++numbered)
        numbers.try_emplace(all[numbered].control, numbered);
    const auto found = numbers.find(control);
    return found == numbers.end() ? nullptr : &all[found->second];
}

int Entries::Number_Of(unsigned serial) const {
    // Later entries have higher numbers.
    const auto is_before = [](const Entry& entry, unsigned wanted) { return entry.serial < wanted; };
    const auto found = std::lower_bound(all.begin(), all.end(), serial, is_before);
    return found != all.end() && found->serial == serial ? static_cast<int>(found - all.begin()) : -1;
}

Entry* Entries::With_Serial(unsigned serial) {
    const int number = Number_Of(serial);
    return number < 0 ? nullptr : &all[static_cast<std::size_t>(number)];
}

bool Entries::Is_As_Noted(std::size_t number) const { return Same(noted[number], all[number].control->Rect); }

/// Whether each control is where it was when the index was made.
bool Entries::Are_Places_Noted() const {
    // Without controls nothing tells an index of none from one of those before.
    if (noted.size() != all.size() || all.empty()) return false;
    const auto is_as_noted = [this](std::size_t number) { return Is_As_Noted(number); };
    const unsigned now = Tools_Placements();
    if (now == placements) return std::all_of(untold.begin(), untold.end(), is_as_noted);
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (!Is_As_Noted(i)) return false;
    }
    placements = now;
    return true;
}

/// The index of the hit rectangles as they are now.
const Place_Index& Entries::Places() const {
    if (Are_Places_Noted()) return index;
    placements = Tools_Placements();
    // Nothing is noted until all is done, for memory may run out on the way.
    std::vector<RECT> places = std::exchange(noted, {});
    places.clear();
    places.reserve(all.size());
    untold.clear();
    unplaced.clear();
    alone = all.size();
    for (std::size_t i = 0; i < all.size(); ++i) {
        places.push_back(all[i].control->Rect);
        if (!all[i].calls->tells_of_moves) untold.push_back(i);
        if (Is_Empty(places[i])) unplaced.push_back(i);
    }
    index.Make(places);
    noted = std::move(places);
    return index;
}

Entry* Entries::At(POINT logical) {
    const Place_Index& places = Places();
    const auto is_hit = [logical](const Entry& entry) {
        return entry.calls->select && !entry.hidden && Is_Inside(*entry.control, logical);
    };
    Entry* top = nullptr;
    if (alone < all.size() && is_hit(all[alone])) {
        top = &all[alone];
    } else {
        std::size_t least = 0;
        places.Search({logical.x, logical.y, logical.x + 1, logical.y + 1}, least, [&](std::size_t number) {
            if (!is_hit(all[number])) return;
            top = &all[number];
            least = number + 1;
        });
        alone = top && !Is_Below(*top, true) ? Number_Of(*top) : all.size();
    }
    return top && Takes_Events(*top) ? top : nullptr;
}

const Entry* Entries::Topmost(POINT logical) const {
    const Entry* top = nullptr;
    std::size_t least = 0;
    Places().Search({logical.x, logical.y, logical.x + 1, logical.y + 1}, least, [&](std::size_t number) {
        if (all[number].hidden || !Is_Inside(*all[number].control, logical)) return;
        top = &all[number];
        least = number + 1;
    });
    return top;
}

bool Entries::Is_Below(const Entry& entry, bool unseen) const {
    bool found = false;
    std::size_t least = Number_Of(entry) + 1;
    Places().Search(entry.control->Rect, least, [&](std::size_t number) {
        if (!unseen && !Is_Seen(all[number])) return;
        found = true;
        least = all.size();
    });
    return found;
}

std::vector<std::size_t> Entries::Painted_In(const RECT& area) const {
    RECT around = area;
    InflateRect(&around, Most_Overhang, Most_Overhang);
    std::vector<std::size_t> found;
    std::size_t least = 0;
    Places().Search(around, least, [&](std::size_t number) {
        const bool may_paint = !Is_Empty(noted[number]) && !all[number].hidden;
        if (may_paint && Meet(Painted_Area(all[number]), area)) found.push_back(number);
    });
    // One that was never initialised has no area yet, and reports that.
    std::copy_if(unplaced.begin(), unplaced.end(), std::back_inserter(found),
                 [this](std::size_t number) { return !all[number].hidden; });
    std::sort(found.begin(), found.end());
    return found;
}

}  // namespace galdren
