/// @file
/// Contexts of windows, and pictures off screen with a context to paint on them.
#pragma once

#include <windows.h>

#include <optional>

namespace galdren {

SIZE Client_Size(HWND window);

/// Describes pixels of 32 bits in rows from the top down.
BITMAPINFO Top_Down_Info(LONG width, LONG rows);

/// Logical (0, 0) becomes the bottom-left pixel, y grows upward, one unit is one pixel. An isotropic mapping
/// would be off by a pixel at many sizes, for the display's millimetres are rounded.
void Map_Logical(HDC dc, SIZE client);

/// A context of its own per window or class keeps what is selected when it is released.
bool Has_Private_Context(HWND window);

/// Device context of a window for a scope, in device coordinates.
class Window_Context {
  public:
    explicit Window_Context(HWND owner);
    ~Window_Context();
    Window_Context(const Window_Context&) = delete;
    Window_Context& operator=(const Window_Context&) = delete;
    HDC Get() const { return dc; }

  private:
    HWND window;
    HDC dc;
    int saved = 0;
};

/// A picture off screen with a context to paint on it.
class Back_Buffer {
  public:
    explicit Back_Buffer(SIZE pixels_wanted);
    ~Back_Buffer();
    Back_Buffer(const Back_Buffer&) = delete;
    Back_Buffer& operator=(const Back_Buffer&) = delete;

    bool Usable() const { return bitmap_before != nullptr; }
    HDC Context() const { return dc; }
    SIZE Size() const { return size; }

    /// Copies `columns` x `rows` pixels from (left, top) to a place in device coordinates of `window`.
    void Copy_To(HWND window, POINT place, int left, int top, int columns, int rows) const;

    /// Brings back what members changed for their text, for an application that draws next.
    void Reset_Text();

    /// The font that is known to be in place; null when an application may have changed it.
    HGDIOBJ font = nullptr;

    /// The first pixel of a row; rows count from the top. GdiFlush has to come before it is read.
    unsigned long* Row(int row) const;

  protected:
    /// Copies whole rows within the picture; the two places may overlap.
    void Copy_Rows(int from, int to, int rows);

  private:
    SIZE size;
    HDC dc;
    HBITMAP bitmap = nullptr;
    unsigned long* pixels = nullptr;
    HGDIOBJ bitmap_before = nullptr;
};

/// The client area of one window off screen, for its batches.
class Window_Buffer : public Back_Buffer {
  public:
    explicit Window_Buffer(SIZE client);
    bool Fits(SIZE client) const { return client.cx == Size().cx && client.cy == Size().cy; }

    /// Starts with what the window shows and notes what is painted from then on.
    void Load(HWND window);

    /// Starts with anything; only `area`, in device coordinates, counts.
    void Limit(const RECT& area);

    /// Copies what was painted since `Load`, or the area that counts, to the window.
    void Show(HWND window);

  private:
    /// What was painted since `Load`, in device coordinates.
    RECT Painted();

    std::optional<RECT> limit;  ///< none after `Load`
};

/// A picture of one control or a part of it, composed off screen.
class Scratch : public Back_Buffer {
  public:
    /// Large enough for most small controls, and small enough to stay in the processor's cache.
    static constexpr SIZE Small_Control{160, 48};

    explicit Scratch(SIZE size) : Back_Buffer(size) {}
    bool Fits(const RECT& device) const {
        return device.right - device.left <= Size().cx && device.bottom - device.top <= Size().cy;
    }

    /// Makes the device coordinates of a window's rectangle fall on this picture.
    void Stand_For(const RECT& device);

    /// Copies the picture to its place in the window.
    void Show(HWND window) const;

  protected:
    /// First row in use.
    int start = 0;
    void Place_Origin() const;

  private:
    RECT place{};
};

/// A picture that is kept from one paint to the next, and whose contents move up and down. It stands in a
/// room of twice its height, so that most movements are only a change of the first row in use.
class Kept_Picture : public Scratch {
  public:
    explicit Kept_Picture(SIZE size) : Scratch({size.cx, 2 * size.cy}), height(size.cy) {}
    bool Has_Size(SIZE size) const { return size.cx == Size().cx && size.cy == height; }

    /// Moves the contents up, or down when negative, by less than the height. The rows that come in hold
    /// anything.
    void Raise(int rows);

    /// Which of the kept pictures this is, counted over the life of the process.
    unsigned number = 0;

  private:
    int height;
};

}  // namespace galdren
