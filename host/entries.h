/// @file
/// The controls of a host: which there are, and which lies where.
#pragma once

#include <windows.h>

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "class_calls.h"
#include "handlers.h"
#include "place_index.h"

namespace galdren {

/// What few controls have.
struct Entry_Extras {
    std::string description;     // see `Host::Describe`
    int mnemonic = 0;            // see `Host::Set_Mnemonic`
    const Tabs* tabs = nullptr;  // the control is on a page of these
    int page = 0;                // number of that page
};

/// A control of a host.
struct Entry {
    Tools* control;
    const Class_Calls* calls;
    std::shared_ptr<const Handlers> handlers;  // null without; kept alive by the call while one runs
    std::unique_ptr<Entry_Extras> extras;      // null while there are none
    unsigned serial = 0;                       // of this entry alone
    bool put_away = false;                     // the application has hidden it
    bool hidden = false;                       // it, or the page that it is on, is hidden
    bool disabled = false;
    Design design{};

    Entry_Extras& Extras() {
        if (!extras) extras = std::make_unique<Entry_Extras>();
        return *extras;
    }
};

/// The rectangle of a control with what it may paint around it.
RECT Painted_Area(const Entry& entry);

inline bool Is_Seen(const Entry& entry) {
    return !entry.hidden && entry.control->Width > 0 && entry.control->Height > 0;
}

/// Whether a control hears of the pointer and of keys. One that does not hides what it covers all the same.
inline bool Takes_Events(const Entry& entry) {
    return !entry.hidden && !entry.disabled && !(entry.control->Flag & FLAG_PASSIVE);
}

/// Controls in the order in which they were added. What is known of their places is worked out when it is
/// asked for: adding many should cost no more than to note them.
class Entries {
  public:
    void Add(Tools& control, const Class_Calls& calls, std::shared_ptr<const Handlers> handlers);
    /// @return whether it was there
    bool Remove(const Tools& control);
    void Clear();

    std::size_t Count() const { return all.size(); }
    Entry& operator[](std::size_t number) { return all[number]; }
    const Entry& operator[](std::size_t number) const { return all[number]; }
    auto begin() { return all.begin(); }
    auto end() { return all.end(); }
    auto begin() const { return all.begin(); }
    auto end() const { return all.end(); }

    /// The entry of a control; null when it was never added.
    Entry* Find(const Tools* control);
    const Entry* Find(const Tools* control) const { return const_cast<Entries*>(this)->Find(control); }
    /// Number of the entry with a serial number; -1 when it has been removed.
    int Number_Of(unsigned serial) const;
    std::size_t Number_Of(const Entry& entry) const { return static_cast<std::size_t>(&entry - all.data()); }
    /// The entry with a serial number; null when it has been removed.
    Entry* With_Serial(unsigned serial);

    /// The topmost control at a place that gets events; null over bare ground and over one that gets none.
    Entry* At(POINT logical);
    /// The topmost control that is seen at a place, labels counted.
    const Entry* Topmost(POINT logical) const;
    /// Whether a control lies above another.
    /// @param unseen  counts those that are not seen now
    bool Is_Below(const Entry& entry, bool unseen) const;
    /// The numbers of the controls that may paint in an area, in the order in which they paint.
    std::vector<std::size_t> Painted_In(const RECT& area) const;

  private:
    void Forget();
    bool Is_As_Noted(std::size_t number) const;
    bool Are_Places_Noted() const;
    const Place_Index& Places() const;

    std::vector<Entry> all;
    unsigned last_serial = 0;
    std::unordered_map<const Tools*, std::size_t> numbers;  // of the entries, the first of each control
    std::size_t numbered = 0;                               // entries that `numbers` has
    mutable std::vector<RECT> noted;                        // the hit rectangles that `index` has
    mutable unsigned placements = 0;                        // `Tools_Placements` then
    mutable Place_Index index;
    mutable std::size_t alone = 0;              // that the pointer was in last, when nothing lies above
    mutable std::vector<std::size_t> untold;    // entries of applications' classes, which move unnoticed
    mutable std::vector<std::size_t> unplaced;  // entries without an area yet
};

}  // namespace galdren
