/// @file
/// Icons: small pictures from files, read once and painted over the colour of a box.
///
/// A name that holds ".tga" is a Targa file of 24 bits; any other is an SGI image of four channels, the
/// fourth being transparency: 0 opaque, 255 clear. The files lie in the directory "Icons" below `Inst_Path`,
/// or in "c:\Program Files\Galdren\Icons\" when that is not set; a name may lead to a directory below it. All
/// functions are for the thread that draws.
///
/// At the scale of a box an icon is enlarged by the largest whole factor that its scaled place has room for,
/// and stands in the middle of that.
#pragma once

#include "../widgets/box.h"
#include "icon_entry.h"

/// The icon called `name`, read from its file when it is asked for the first time.
///
/// The surface that an application holds is put aside while the file is read. After that painting is limited
/// to the box's rectangle.
/// @param box  where the icon will be painted; may be null
/// @return a `galdren::Icon_Entry`, valid until `Icon_Cleanup`; null when the file cannot be read, which is
///         reported and not tried again, or when 255 other names were asked for before
GALDREN_TOOLS_API void* Icon_Read(Boxs* box, const char* name);

/// Paints an icon with its bottom-left corner at (x, y) in the box's window, blended over the box's `Color`.
/// Nothing is painted when it lies outside the box.
/// @param label  who asks, for the trace
GALDREN_TOOLS_API void Icon_Draw_Image(Boxs* box, short x, short y, const char* label, const char* name);

/// Paints a raised frame of one pixel around the place of an icon. Belongs between `Begin_Draw` and
/// `End_Draw`.
/// @param label  not used
GALDREN_TOOLS_API void Icon_Draw_Border(Boxs* box, short x, short y, const char* label, const char* name);

/// Forgets all icons and releases their memory. `Tools_Lib_Cleanup` calls it.
GALDREN_TOOLS_API void Icon_Cleanup();
