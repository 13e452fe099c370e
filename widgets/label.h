/// @file
/// Labels: text in its own colour, without frame, background or reaction to the pointer.
#pragma once

#include "../tools/tools.h"

/// A caption. `Color` is the colour of the text; black becomes white at `Init`. Placement follows `Flag`;
/// horizontal text has no bottom placement.
class GALDREN_TOOLS_API Labels : public Tools {
  public:
    /// Every field zero.
    Labels();
    /// Copies every field; what the source owns is shared.
    Labels(const Labels& other);
    /// Lets go of what this label owns and copies every field.
    Labels& operator=(const Labels& other);
    /// Lets go of what every control owns.
    ~Labels();

    /// Binds the label to a window and makes its font anew.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    void Init(HWND window);
    /// Writes the text.
    void Draw();
};
