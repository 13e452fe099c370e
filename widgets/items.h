/// @file
/// The owned array of items behind every `Grow`, pointers ended by null, and how owners dress their parts.
#pragma once

#include <algorithm>
#include <climits>
#include <new>

#include "tools/base.h"
#include "tools/images.h"
#include "tools/sharing.h"
#include "util/error.h"
#include "util/program.h"
#include "widgets/button.h"

namespace galdren {

/// Where an allocation stands in reports; part of their text, so it does not follow the code.
struct Grow_Place {
    const char* file;
    int growing;
    int shrinking;
};

template <class Item>
int Count_Items(Item* const* items) {
    int count = 0;
    while (items && items[count])
        ++count;
    return count;
}

/// Gives a holder's items up; the last holder deletes them. The pointer becomes null.
template <class Item>
void Release_Items(Item**& items) {
    if (Let_Go(Thing::Array, items)) {
        for (Item** item = items; *item; ++item)
            delete *item;
        delete[] items;
    }
    items = nullptr;
}

/// Gives a part the name of its owner. It holds the name like a copy does, for the owner may get another one.
inline void Take_Name(Tools& part, const Tools& owner) {
    Release_Name(part);
    part.Name = owner.Name;
    if (owner.Name != owner.Owned_Name) return;
    Share_Array(owner.Owned_Name);
    part.Owned_Name = owner.Owned_Name;
}

/// Gives a part the face, the weight and the size of its owner's font.
inline void Copy_Face(Tools& part, const Tools& owner) {
    part.Font_Name = owner.Font_Name;
    part.Font_Weight = owner.Font_Weight;
    part.Font_Size = owner.Font_Size;
}

/// Gives an item the font of its owner, style and all.
inline void Copy_Font(Tools& item, const Tools& owner) {
    Copy_Face(item, owner);
    item.Font_Style = owner.Font_Style;
}

/// Puts a part at a place. What has no room for the part leaves it without size.
/// @param fit  what becomes of a number beyond the range of the fields: `Low_16` or `Within_16`
inline void Set_Place(Tools& part, const Area& place, short (*fit)(int) = Low_16) {
    part.X = fit(place.left);
    part.Y = fit(place.bottom);
    part.Width = fit(place.right - place.left);
    part.Height = fit(place.top - place.bottom);
}

/// `place`, or one of width or height 0 where it is turned round.
inline Area Not_Turned(const Area& place) {
    return {place.left, std::max(place.left, place.right), place.bottom, std::max(place.bottom, place.top)};
}

/// Gives a part the place, the look and the font words of its owner.
inline void Copy_Place(Tools& part, const Tools& owner) {
    Copy_Look(part, owner);
    Set_Place(part, Area_Of(owner));
    part.Color = owner.Color;
    Copy_Face(part, owner);
}

/// Gives the frame of a compound control the place and the look of its owner.
inline void Copy_Frame(Tools& frame, const Tools& owner) {
    Copy_Place(frame, owner);
    frame.Border = owner.Border;
    Copy_Surroundings(frame, owner);
}

/// Style bits that say whether and how the frame of a compound control shows.
constexpr unsigned long Frame_Look = FLAG_NO_BODY | FLAG_STATIC | FLAG_OUTLINE;

/// Style bits that place a caption. One among them has no meaning yet and is kept with them.
constexpr unsigned long Caption_Places =
    FLAG_TEXT_MIDDLE | FLAG_TEXT_TOP | FLAG_TEXT_BOTTOM | 0x1000 | FLAG_TEXT_LEFT | FLAG_TEXT_RIGHT;

/// Style bits that mean something else in each class and nothing to the buttons that are items.
constexpr unsigned long Bits_Of_Classes = 0x0F000000;

/// Style bits of its owner that an item takes over.
inline unsigned long Inherited_Flags(const Tools& owner) {
    return owner.Flag & (FLAG_STATIC | FLAG_OWN_IMAGES | Caption_Places | BUTTON_LAMP | Bits_Of_Classes);
}

/// Style bits of new items: those wanted, or those of the owner when these are 0.
inline unsigned long Flags_For_New(const Tools& owner, int wanted) {
    return (wanted ? static_cast<unsigned long>(wanted) : Inherited_Flags(owner)) | FLAG_NO_RIM;
}

template <class Item>
void Forget_Withdrawn_Images(Item**& items) {
    for (int i = 0; items && items[i]; ++i)
        Forget_Withdrawn_Images(*items[i]);
}

/// The head of `Init` of a control with parts, which forget withdrawn images also when it has to stop.
template <class... Parts>
bool Begin_Compound(Tools& control, HWND& window, const char* label, Parts&... parts) {
    if (Begin_Init(control, window, label)) return true;
    (Forget_Withdrawn_Images(parts), ...);
    return false;
}

/// Sets the number of items. Those that stay are not touched, or copied where the array is shared; new ones
/// are constructed. A negative count frees the array itself.
/// @return 1; 0 when the memory cannot be had, which is reported at level 1. Without memory for the array
///         all items are freed; without memory for an item those before it stay.
template <class Item>
int Grow_Items(const Tools& owner, Item**& items, int count, unsigned long flag, const Grow_Place& place) {
    const int before = Count_Items(items);
    if (before == count) return 1;
    const auto fail = [&] {
        Error_Fct(hwnd, ERROR_LEVEL_MEMORY, "line %-4d of %s \nmemory error in realloc (var=%s, dim=%dx%d)",
                  count > before ? place.growing : place.shrinking, place.file, "this->Item", count + 1, 8);
        return 0;
    };
    if (count > SHRT_MAX) return fail();
    const bool shared = items && Is_Shared(Thing::Array, items);
    const int kept = std::clamp(count, 0, before);
    Item** resized = count < 0 ? nullptr : new (std::nothrow) Item* [std::size_t(count) + 1] {};
    bool complete = resized != nullptr;
    for (int i = 0; i < kept && complete; ++i) {
        resized[i] = shared ? new (std::nothrow) Item(*items[i]) : items[i];
        complete = resized[i] != nullptr;
    }
    if (!complete) {
        if (resized) Release_Items(resized);
        Release_Items(items);
        return count < 0 ? 1 : fail();
    }
    // What stays of an array of its own has moved.
    if (!shared && kept > 0) std::copy(items + kept, items + before + 1, items);
    Release_Items(items);
    items = resized;
    for (int i = kept; i < count; ++i) {
        items[i] = new (std::nothrow) Item;
        if (!items[i]) return fail();
        items[i]->Flag = flag;
        Copy_Surroundings(*items[i], owner);
    }
    return 1;
}

}  // namespace galdren
