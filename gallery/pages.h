/// @file
/// The pages of the gallery. A new page is one source file and one row of the table in pages.cpp.
#pragma once

#include <span>

#include "gallery/sheet.h"

namespace gallery {

/// The part of `design_size` that pages may fill.
constexpr Place page_area{24, 58, 752, 498};

struct Page {
    const char* name;       ///< word for the command line and for file names
    const char* title;      ///< caption of its tab, which may be 50 pixels long
    void (*build)(Sheet&);  ///< puts its controls on an empty sheet
};

/// All pages in the order of their tabs.
std::span<const Page> Pages();

void Build_Boxes(Sheet& sheet);
void Build_Labels(Sheet& sheet);
void Build_Buttons(Sheet& sheet);
void Build_Checklists(Sheet& sheet);
void Build_Sliders(Sheet& sheet);
void Build_Selectors(Sheet& sheet);
void Build_Lists(Sheet& sheet);
void Build_Entries(Sheet& sheet);
void Build_Console(Sheet& sheet);
void Build_Icons(Sheet& sheet);
void Build_Colors(Sheet& sheet);
void Build_Dialogs(Sheet& sheet);
/// From now on dialogs of the page close by themselves when they were photographed.
void Close_Dialogs_At_Once();
void Build_Directories(Sheet& sheet);
void Build_Tabs(Sheet& sheet);
void Build_Stress(Sheet& sheet);

}  // namespace gallery
