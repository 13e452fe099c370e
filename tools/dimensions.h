/// @file
/// Dimensions that every control reads when it is drawn. The application may change them.
#pragma once

#include "api.h"

extern GALDREN_TOOLS_API short BORDER;     ///< default width of a frame, in pixels
extern GALDREN_TOOLS_API short SPACE;      ///< space between the parts of a control, in pixels
extern GALDREN_TOOLS_API short CURSEUR;    ///< size of the thumb of sliders and valuators, in pixels
extern GALDREN_TOOLS_API short BUT_DIM;    ///< default size of a button, in pixels
extern GALDREN_TOOLS_API short NUM_DIM;    ///< width of a number field, in pixels, for layouts
extern GALDREN_TOOLS_API short VAL_DIM;    ///< height of a valuator, in pixels, for layouts
extern GALDREN_TOOLS_API short VAL_SMALL;  ///< height of a small valuator, in pixels, for layouts
extern GALDREN_TOOLS_API short BUT_LIST;   ///< default height of a list's item, in pixels; `BUT_DIM` at load
