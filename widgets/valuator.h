/// @file
/// Valuators: sliders that set a value, with a name in the trough and a number field.
#pragma once

#include <cstddef>

#include "slider.h"

/// Bits of `Flag` that valuators add to those of sliders.
/// @{
constexpr unsigned long VALUATOR_LOCKED = 0x100000;   ///< the value is frozen and a padlock is shown
constexpr unsigned long VALUATOR_LOG_10 = 0x1000000;  ///< decimal logarithmic scale
constexpr unsigned long VALUATOR_LOG_E =
    0x2000000;  ///< natural logarithmic scale; only without `VALUATOR_LOG_10`
/// @}

/// A trough in which a thumb marks a value, on a linear or logarithmic scale. It is vertical with `Flag` 0x4.
///
/// The valuator does not move its value with the pointer: when `Select` answers 1 with a button down, the
/// owner stores what `Read` answers in `Val` and calls `Adjust`. Every field is zero at first; copies take
/// all of them, the table included.
class Valuators : public Tools {
  public:
    static constexpr int Most_Positions = 4096;  ///< entries of `Tab`

    float Val{};                  ///< current value
    float Start_Val{};            ///< value at the left or bottom end; above 0 on a logarithmic scale
    float End_Val{};              ///< value at the right or top end; above 0 on a logarithmic scale
    const char* Format{};         ///< printf format of the number field, one floating-point conversion; null
                                  ///< means no number field, which a vertical valuator never has; not owned
    short Num_Width{};            ///< width of the number field in pixels; 0 without `Format`
    short Curs_Half{};            ///< half the length of the thumb in pixels; at least `CURSEUR`
    float Step{};                 ///< step of `Scroll` in units of the scale; 0 means a fiftieth of the range
    float Tab[Most_Positions]{};  ///< value of each position of the thumb, made by `Init`
    short Select_State{};         ///< 0 unknown, 1 painted highlighted, 2 painted normal
    short Capture{};              ///< 1 while a press that began here goes on, with `SLIDER_KEEP_GRAB`
    short Tab_Num{};              ///< entries of `Tab` that count

    /// Binds the valuator to a window and works out its table. To be called again after a change of place,
    /// size, range, scale or `Curs_Half`. Does nothing with a negative `Num_Width`.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    GALDREN_TOOLS_API void Init(HWND window);
    /// Sizes the thumb as the visible part of a document. To be called before `Init`.
    /// @param larg   extent of the visible part; its sign does not count
    /// @param total  extent of the whole; its sign does not count
    GALDREN_TOOLS_API void Larg_Adjust(float larg, float total);
    /// Locks the value (any other number), frees it (0) or changes between the two (8). Shown by the next
    /// paint.
    GALDREN_TOOLS_API void Lock(int how);
    /// The value under the pointer, the nearest end beyond the track; `Val` when locked, 0 when passive.
    GALDREN_TOOLS_API float Read();
    /// Follows the pointer.
    /// @param event  see `Select_Event`
    /// @return 1 when the owner is to take a value with `Read`
    GALDREN_TOOLS_API int Select(int event);
    /// Ends a drag and paints the inside normal.
    GALDREN_TOOLS_API void Deselect();
    /// Paints the whole valuator.
    GALDREN_TOOLS_API void Draw();
    /// Repaints after a change of `Val`.
    GALDREN_TOOLS_API void Adjust();
    /// Moves the value by `n` steps, down when positive (up when reversed), and repaints.
    /// @return the new value
    GALDREN_TOOLS_API float Scroll(int n);
    /// Writes the value as the number field shows it, or would show it without a format.
    /// @param text  receives it, cut where the room ends
    /// @param room  bytes that `text` takes, with the end
    GALDREN_TOOLS_API void Print_Number(char* text, std::size_t room) const;

  private:
    const char* Used_Format() const;

    mutable char Checked_Format[16]{};  // the format that was checked last; empty, of a longer one or none
    mutable bool Is_Number{};           // it holds one number
};
