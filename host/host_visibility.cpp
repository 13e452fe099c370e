// Controls that are hidden, disabled or on a page that is not in front. Their fields stay as the application
// left them: a veil keeps their members from painting.
#include <algorithm>

#include "host/client.h"
#include "host/host.h"

using namespace galdren;

/// Puts a veil on a control and all that it is made of.
void Host::Set_Veil(const Entry& entry, unsigned char veil) {
    entry.control->Veil = veil;
    entry.calls->parts().For_Members(*entry.control, [veil](Tools& member) { member.Veil = veil; });
}

/// Puts the veil on that a control is to have, also on members that it has not had before.
void Host::Renew_Veil(const Entry& entry) {
    const unsigned char veil = entry.hidden ? VEIL_HIDDEN : entry.disabled ? VEIL_LATER : VEIL_NONE;
    if (veil != VEIL_NONE || entry.control->Veil != VEIL_NONE) Set_Veil(entry, veil);
}

void Host::Set_Shown(const Tools& control, bool shown) {
    Entry* const entry = entries.Find(&control);
    if (!entry || entry->put_away == !shown) return;
    entry->put_away = !shown;
    const auto is_of_it = [&control](const Page_Set& set) { return set.tabs == &control; };
    Show_Or_Hide(*entry);
    if (std::any_of(pages.begin(), pages.end(), is_of_it)) Show_Or_Hide_All();
    keys->Update();
}

bool Host::Is_Shown(const Tools& control) const {
    const Entry* const entry = entries.Find(&control);
    return entry && !entry->hidden;
}

void Host::Set_Enabled(const Tools& control, bool enabled) {
    Entry* const entry = entries.Find(&control);
    if (!entry || entry->disabled == !enabled) return;
    if (current == &control) Leave();
    entry->disabled = !enabled;
    enabled ? --disabled : ++disabled;
    Renew_Veil(*entry);
    if (fade.look) {
        entry->control->Look = Look_Of(*entry);
        Init_Again(*entry);
    }
    Refresh_Area(Painted_Area(*entry));
    keys->Update();
    Tell_Services(Part_Change::State, {static_cast<int>(entries.Number_Of(*entry)), Whole});
}

bool Host::Is_Enabled(const Tools& control) const {
    const Entry* const entry = entries.Find(&control);
    return entry && !entry->disabled;
}

void Host::Put_On_Page(const Tabs& tabs, int page, const Tools& control) {
    Entry* const entry = entries.Find(&control);
    if (!entry || !entries.Find(&tabs)) return;
    // Tabs on a page of their own would never be shown again.
    for (const Entry* around = entries.Find(&tabs); around;) {
        if (around == entry) return;
        around = around->extras && around->extras->tabs ? entries.Find(around->extras->tabs) : nullptr;
    }
    entry->Extras().tabs = &tabs;
    entry->Extras().page = page;
    const auto is_of_it = [&tabs](const Page_Set& set) { return set.tabs == &tabs; };
    if (std::none_of(pages.begin(), pages.end(), is_of_it)) pages.push_back({&tabs, tabs.Value});
    Show_Or_Hide(*entry);
    keys->Update();
}

/// Whether the page that a control is on is not in front. The page of tabs that were removed is.
bool Host::Is_On_Hidden_Page(const Entry& entry) const {
    const Tabs* const tabs = entry.extras ? entry.extras->tabs : nullptr;
    const Entry* const around = tabs ? entries.Find(tabs) : nullptr;
    if (!around) return false;
    return tabs->Value != entry.extras->page || around->put_away || Is_On_Hidden_Page(*around);
}

/// Shows the pages that the application has brought to the front.
void Host::Follow_Pages() {
    bool turned = false;
    for (Page_Set& set : pages) {
        turned |= set.shown != set.tabs->Value;
        set.shown = set.tabs->Value;
    }
    if (!turned) return;
    Show_Or_Hide_All();
    keys->Update();
}

void Host::Show_Or_Hide_All() {
    for (Entry& entry : entries) {
        if (entry.extras) Show_Or_Hide(entry);
    }
}

/// Hides a control or shows it, as what the application wants and the page that it is on come to.
void Host::Show_Or_Hide(Entry& entry) {
    const bool hides = entry.put_away || Is_On_Hidden_Page(entry);
    if (std::exchange(entry.hidden, hides) == hides) return;
    Renew_Veil(entry);
    if (hides && current == entry.control) Leave();
    Refresh_Area(Painted_Area(entry));
    const Part_Change change = hides ? Part_Change::Hidden : Part_Change::Shown;
    Tell_Services(change, {static_cast<int>(entries.Number_Of(entry)), Whole});
}
